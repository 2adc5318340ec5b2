// Input: a file `config` of records shortened to their contents. Each record is given as two bytes of length
// and a payload; it gets its checksum here, so that the decoder sees what the fuzzer made. An odd first byte
// means that the input is the file as it stands.

#include "core/settings/config_settings.h"
#include "core/settings/setting_form.h"
#include "core/text/checksum.h"
#include "core/text/ranges.h"

#include <QtEndian>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace paneda;

namespace {

QByteArray FileOf(QByteArrayView input) {
    QByteArray file;
    while (input.size() >= 2) {
        const qsizetype size =
            std::min<qsizetype>(qFromLittleEndian<quint16>(input.data()), input.size() - 2);
        const QByteArrayView payload = input.sliced(2, size);
        QByteArray record(8, '\0');
        qToLittleEndian(quint32(size), record.data());
        qToLittleEndian(Fnv1a32(payload), record.data() + 4);
        record += payload;
        file += record.leftJustified(kConfigRecordSize, '\0', true);
        input = input.sliced(2 + size);
    }
    return file;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1)
        return 0;
    const QByteArrayView input(reinterpret_cast<const char*>(data) + 1, qsizetype(size - 1));
    ConfigFile file(data[0] % 2 == 1 ? input.toByteArray() : FileOf(input));
    for (int record = 1; record <= 20; ++record) {
        const auto values = file.Read(record);
        const auto encoded = values ? EncodeConfigRecord(*values) : std::nullopt;
        if (!encoded)
            continue;
        // Compared as bytes, since a real may be no number.
        const auto again = DecodeConfigRecord(*encoded);
        if (!again || EncodeConfigRecord(*again) != encoded)
            std::abort();
    }
    AppState state;
    ReadConfigRecords(file, state);
    const QByteArray grown = file.Bytes();
    ReadConfigRecords(file, state);
    if (file.Bytes() != grown)
        std::abort();
    if (!range::kPlace.Holds(state.PanelTop) || !range::kPlace.Holds(state.PanelLeft) ||
        !range::kButtonsPerRow.Holds(state.ButtonsPerRow) || !range::kVirtualKey.Holds(state.HotkeyKey))
        std::abort();
    // What the dialog writes is read as it was.
    for (const RecordWrite& write : PlanSettings(ReadSettingForm(file, {}, state), false).Records)
        file.Write(write.Record, write.Values);
    AppState again;
    ReadConfigRecords(file, again);
    if (again.HotkeyKey != state.HotkeyKey || again.MouseTriggerMode != state.MouseTriggerMode)
        std::abort();
    return 0;
}
