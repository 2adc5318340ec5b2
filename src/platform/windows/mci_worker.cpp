#include "platform/windows/mci_worker.h"

#include "platform/windows/wide_text.h"

#include <QDir>

#include <windows.h>

#include <mmsystem.h>

#include <utility>

namespace paneda {

namespace {

constexpr int kLookEvery = 20;   // ms, while something sounds: parts of a spoken text follow without a gap
constexpr UINT kAnswerSize = 64; // characters

// Also empty if the command fails.
QString Ask(const QString& command) {
    wchar_t answer[kAnswerSize] = {};
    return mciSendStringW(Wide(command), answer, kAnswerSize, nullptr) == 0 ? QString::fromWCharArray(answer)
                                                                            : QString();
}

bool Send(const QString& command) {
    return mciSendStringW(Wide(command), nullptr, 0, nullptr) == 0;
}

// The short form of a path, because commands accept no long paths. The path itself if the volume has no short
// forms.
QString ShortPath(const QString& path) {
    const QString native = QDir::toNativeSeparators(path);
    wchar_t text[MAX_PATH] = {};
    const DWORD length = GetShortPathNameW(Wide(native), text, MAX_PATH);
    return length > 0 && length < MAX_PATH ? QString::fromWCharArray(text) : native;
}

bool Open(const QString& path, const QString& alias) {
    const QString file = QStringLiteral("open \"%1\"").arg(ShortPath(path));
    const QString name = QStringLiteral(" alias ") + alias;
    // A machine that lacks this device type may have one for the file's extension.
    return Send(file + QStringLiteral(" type MPEGVideo") + name) || Send(file + name);
}

} // namespace

MciWorker::MciWorker(std::shared_ptr<SoundBoard> board) : board_(std::move(board)), look_(this) {
    look_.setInterval(kLookEvery);
    connect(&look_, &QTimer::timeout, this, &MciWorker::Look);
}

MciWorker::~MciWorker() {
    CloseAll();
}

void MciWorker::Play(const QString& path, const QString& alias, int ticket) {
    Close(alias);
    if (!board_->IsWanted(alias, ticket))
        return;
    if (!Open(path, alias) || !Send(QStringLiteral("play %1 from 0").arg(alias))) {
        Close(alias);
        board_->Fail(alias, ticket);
        return;
    }
    tickets_.insert(alias, ticket);
    look_.start();
}

void MciWorker::Stop(const QString& alias) {
    Send(QStringLiteral("stop ") + alias);
    tickets_.remove(alias);
}

void MciWorker::Close(const QString& alias) {
    Stop(alias);
    Send(QStringLiteral("close ") + alias);
}

void MciWorker::CloseAll() {
    // Stopped first, so that the file is closed at once.
    for (const QString& alias : tickets_.keys())
        Close(alias);
    Send(QStringLiteral("close all"));
}

void MciWorker::Look() {
    for (auto entry = tickets_.begin(); entry != tickets_.end();) {
        if (Ask(QStringLiteral("status %1 mode").arg(entry.key())) == u"playing") {
            ++entry;
            continue;
        }
        board_->End(entry.key(), entry.value());
        entry = tickets_.erase(entry);
    }
    if (tickets_.isEmpty())
        look_.stop();
}

} // namespace paneda
