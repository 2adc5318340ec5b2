#include "platform/linux/mixer_worker.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace paneda {

namespace {

constexpr quint32 kInitAudio = 0x10;
constexpr quint16 kSigned16 = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? 0x8010 : 0x9010;
constexpr int kRate = 44'100;
constexpr int kBufferFrames = 2048;
constexpr int kVoices = 32;
constexpr int kLookEvery = 40;         // ms, while something sounds
constexpr int kCloseAfter = 5'000;     // ms of silence
constexpr qint64 kReadWhole = 1 << 20; // bytes; a larger file is streamed

// Where the synthesizer finds its instruments, unless the user has set them in the environment.
void ChooseSoundFont(const SdlMixer& mixer) {
    if (!qEnvironmentVariableIsEmpty("SDL_SOUNDFONTS"))
        return;
    for (const char* font : {"/usr/share/sounds/sf2/default-GM.sf2", "/usr/share/sounds/sf3/default-GM.sf3",
                             "/usr/share/soundfonts/default.sf2"}) {
        if (QFileInfo::exists(QString::fromLatin1(font))) {
            mixer.SetSoundFonts(font);
            return;
        }
    }
}

// To read a MIDI file whole, the synthesizer would have to play it to its end before the first note is heard.
bool IsForStreaming(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && (file.size() > kReadWhole || file.read(4) == "MThd");
}

} // namespace

MixerWorker::MixerWorker(std::shared_ptr<SoundBoard> board)
    : board_(std::move(board)), look_(this), close_(this) {
    look_.setInterval(kLookEvery);
    close_.setInterval(kCloseAfter);
    close_.setSingleShot(true);
    connect(&look_, &QTimer::timeout, this, &MixerWorker::Look);
    connect(&close_, &QTimer::timeout, this, &MixerWorker::CloseDevice);
}

MixerWorker::~MixerWorker() {
    CloseAll();
    CloseDevice();
}

void MixerWorker::Play(const QString& path, const QString& alias, int ticket) {
    Close(alias);
    // If several calls arrived while the thread was busy, only the last one is played.
    if (!board_->IsWanted(alias, ticket))
        return;
    Voice voice;
    voice.Ticket = ticket;
    // To open a pipe would block.
    if (!QFileInfo(path).isFile() || !OpenDevice() || !Start(path, voice)) {
        End(voice);
        board_->Fail(alias, ticket);
    } else {
        voices_.emplace(alias, voice);
    }
    Look();
}

void MixerWorker::Close(const QString& alias) {
    const auto voice = voices_.find(alias);
    if (voice == voices_.end())
        return;
    End(voice->second);
    voices_.erase(voice);
}

void MixerWorker::CloseAll() {
    for (const auto& [alias, voice] : voices_)
        End(voice);
    voices_.clear();
}

bool MixerWorker::OpenDevice() {
    close_.stop();
    if (isOpen_)
        return true;
    if (!isLoaded_) {
        isLoaded_ = true;
        mixer_ = SdlMixer::Load();
    }
    if (!mixer_)
        return false;
    // SDL must not install signal handlers of its own.
    mixer_->SetHint("SDL_NO_SIGNAL_HANDLERS", "1");
    mixer_->SetHint("SDL_APP_NAME", "Paneda Launcher");
    if (mixer_->InitSubSystem(kInitAudio) != 0)
        return false;
    isOpen_ = mixer_->OpenAudio(kRate, kSigned16, 2, kBufferFrames) == 0;
    if (isOpen_) {
        mixer_->AllocateChannels(kVoices);
        ChooseSoundFont(*mixer_);
    } else {
        mixer_->QuitSubSystem(kInitAudio);
    }
    return isOpen_;
}

void MixerWorker::CloseDevice() {
    if (!isOpen_)
        return;
    isOpen_ = false;
    mixer_->CloseAudio();
    mixer_->QuitSubSystem(kInitAudio);
}

bool MixerWorker::Start(const QString& path, Voice& voice) {
    const QByteArray name = QFile::encodeName(path);
    if (MayStream() && IsForStreaming(path))
        return Stream(name, voice);
    SdlMixer::RWops* source = mixer_->RWFromFile(name.constData(), "rb");
    voice.Chunk = source ? mixer_->LoadWav(source, 1) : nullptr;
    if (!voice.Chunk)
        return false;
    voice.Channel = mixer_->PlayChannel(-1, voice.Chunk, 0, -1);
    return voice.Channel >= 0;
}

bool MixerWorker::Stream(const QByteArray& path, Voice& voice) {
    voice.Music = mixer_->LoadMusic(path.constData());
    return voice.Music && mixer_->PlayMusic(voice.Music, 0) == 0;
}

void MixerWorker::End(const Voice& voice) {
    if (voice.Channel >= 0)
        mixer_->HaltChannel(voice.Channel);
    if (voice.Chunk)
        mixer_->FreeChunk(voice.Chunk);
    if (voice.Music) {
        mixer_->HaltMusic();
        mixer_->FreeMusic(voice.Music);
    }
}

bool MixerWorker::IsOver(const Voice& voice) const {
    return voice.Music ? mixer_->PlayingMusic() == 0 : mixer_->Playing(voice.Channel) == 0;
}

bool MixerWorker::MayStream() const {
    return std::none_of(voices_.begin(), voices_.end(),
                        [](const auto& entry) { return entry.second.Music != nullptr; });
}

void MixerWorker::Look() {
    for (auto entry = voices_.begin(); entry != voices_.end();) {
        if (!IsOver(entry->second)) {
            ++entry;
            continue;
        }
        End(entry->second);
        board_->End(entry->first, entry->second.Ticket);
        entry = voices_.erase(entry);
    }
    if (!voices_.empty()) {
        look_.start();
        return;
    }
    look_.stop();
    if (isOpen_)
        close_.start();
}

} // namespace paneda
