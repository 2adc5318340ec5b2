#include "platform/windows/run_key_autostart.h"

#include "core/text/text_rules.h"
#include "platform/windows/wide_text.h"

#include <QDir>
#include <QFileInfo>

#include <windows.h>

#include <vector>

namespace paneda {

namespace {

constexpr wchar_t kRunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr wchar_t kSwitchKey[] =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\StartupApproved\\Run";
constexpr wchar_t kValue[] = L"Paneda Launcher";
const QString kProgram = QStringLiteral("paneda.exe");

// Empty if there is no such value.
QString RunValue() {
    DWORD size = 0;
    if (RegGetValueW(HKEY_CURRENT_USER, kRunKey, kValue, RRF_RT_REG_SZ, nullptr, nullptr, &size) !=
        ERROR_SUCCESS)
        return {};
    std::vector<wchar_t> text(size / sizeof(wchar_t) + 1);
    if (RegGetValueW(HKEY_CURRENT_USER, kRunKey, kValue, RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
        ERROR_SUCCESS)
        return {};
    return QString::fromWCharArray(text.data());
}

// A user may have added quotes.
QString ProgramOf(QString value) {
    return value.remove(u'"');
}

bool IsOwn(const QString& value) {
    return SameName(QFileInfo(QDir::fromNativeSeparators(ProgramOf(value))).fileName(), kProgram);
}

// An odd first byte means that the user has disabled the entry.
bool IsSwitchedOff() {
    BYTE bytes[64] = {};
    DWORD size = sizeof bytes;
    return RegGetValueW(HKEY_CURRENT_USER, kSwitchKey, kValue, RRF_RT_REG_BINARY, nullptr, bytes, &size) ==
               ERROR_SUCCESS &&
           size > 0 && (bytes[0] & 1) != 0;
}

FileResult ResultOf(LSTATUS status) {
    if (status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND)
        return {};
    const QString path = QStringLiteral("HKEY_CURRENT_USER\\") + QString::fromWCharArray(kRunKey);
    return tl::make_unexpected(FileError{path, qt_error_string(int(status))});
}

} // namespace

FileResult RunKeyAutostart::Set(bool on, const QString& executablePath) {
    const QString former = RunValue();
    if (!former.isEmpty() && !IsOwn(former))
        return tl::make_unexpected(FileError{
            former, QStringLiteral("This start was not made by Paneda Launcher and was left as it is.")});
    if (!on)
        return ResultOf(RegDeleteKeyValueW(HKEY_CURRENT_USER, kRunKey, kValue));
    const QString path = QDir::toNativeSeparators(QFileInfo(executablePath).absoluteDir().filePath(kProgram));
    const LSTATUS status = RegSetKeyValueW(HKEY_CURRENT_USER, kRunKey, kValue, REG_SZ, Wide(path),
                                           DWORD(path.size() + 1) * sizeof(wchar_t));
    // Ignored: usually the user has not disabled the entry and there is nothing to delete.
    if (status == ERROR_SUCCESS)
        RegDeleteKeyValueW(HKEY_CURRENT_USER, kSwitchKey, kValue);
    return ResultOf(status);
}

bool RunKeyAutostart::IsSet(const QString& executablePath) const {
    const QString wanted = QDir::toNativeSeparators(QFileInfo(executablePath).absoluteFilePath());
    return SameName(ProgramOf(RunValue()), wanted) && !IsSwitchedOff();
}

} // namespace paneda
