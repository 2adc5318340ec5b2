#include "platform/windows/shell_opener.h"

#include "core/files/file_io.h"
#include "core/files/web_addresses.h"
#include "platform/windows/com_scope.h"
#include "platform/windows/quiet_errors.h"
#include "platform/windows/target_path.h"
#include "platform/windows/wide_text.h"

#include <QFileInfo>

#include <windows.h>

#include <shellapi.h>

namespace paneda {

namespace {

constexpr int kWaitAtEnd = 500; // ms

static_assert(int(ShowCommand::Normal) == SW_SHOWNORMAL && int(ShowCommand::Minimized) == SW_SHOWMINIMIZED &&
              int(ShowCommand::Maximized) == SW_SHOWMAXIMIZED);

const wchar_t* WideOrNone(const QString& text) {
    return text.isEmpty() ? nullptr : Wide(text);
}

// By its full path, so that a program of the same name in the current folder is not started instead.
QString FileManager() {
    wchar_t folder[MAX_PATH] = {};
    const UINT length = GetWindowsDirectoryW(folder, MAX_PATH);
    const QString program = QStringLiteral("explorer.exe");
    return length > 0 && length < MAX_PATH ? QString::fromWCharArray(folder) + u'\\' + program : program;
}

QString ExistingFolder(const QString& startIn, const QString& target, const LaunchPaths& paths) {
    const QString wanted = HostTarget(startIn, paths);
    if (!wanted.isEmpty() && QFileInfo(wanted).isDir())
        return wanted;
    const QString own = target.first(target.lastIndexOf(u'\\') + 1);
    return !own.isEmpty() && QFileInfo(own).isDir() ? own : QString();
}

SHELLEXECUTEINFOW InfoOf(const ShellCall& call) {
    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof info;
    // The call must not return before the start is complete, because this thread has no message loop to
    // continue it.
    info.fMask = SEE_MASK_NOASYNC;
    info.lpVerb = WideOrNone(call.Verb);
    info.lpFile = Wide(call.File);
    info.lpParameters = WideOrNone(call.Parameters);
    info.lpDirectory = WideOrNone(call.Folder);
    info.nShow = int(call.Show);
    return info;
}

// The shell has no message for these.
QString ProblemOf(const LaunchRequest& request, const LaunchPaths& paths) {
    const auto address = AddressOfAnyScheme(request.Target);
    if (request.What == LaunchRequest::Action::OpenTarget && IsAddress(request.Target) && !address)
        return ProblemText(request.Name, address.error());
    if (request.What != LaunchRequest::Action::Refuse)
        return u'"' + request.Name + QStringLiteral("\" has no target. Give it one.");
    const QString file = HostTarget(request.Target, paths);
    return ProblemText(request.Name,
                       file.isEmpty() ? request.Problem : FileError{file, request.Problem}.Text());
}

// Like the shell's messages, this one belongs to no window.
void TellProblem(const QString& text) {
    MessageBoxW(nullptr, Wide(text), L"Paneda Launcher", MB_OK | MB_ICONERROR | MB_SETFOREGROUND);
}

void Start(const LaunchRequest& request, const LaunchPaths& paths, HWND owner, LaunchTurn& turn) {
    const ComScope com;
    const QuietErrors quiet;
    const ShellCall call = PlanShellCall(request, paths);
    if (!turn.Begin())
        return;
    if (call.File.isEmpty()) {
        if (request.What != LaunchRequest::Action::Nothing)
            TellProblem(ProblemOf(request, paths));
        return;
    }
    SHELLEXECUTEINFOW first = InfoOf(call);
    first.fMask |= SEE_MASK_FLAG_NO_UI;
    first.hwnd = owner;
    if (ShellExecuteExW(&first) || GetLastError() == ERROR_CANCELLED)
        return;
    // The shell says itself what is wrong, or asks which program is to open the file. Its message belongs to
    // no window, so that the panel does not wait for an answer.
    SHELLEXECUTEINFOW second = InfoOf(call);
    ShellExecuteExW(&second);
}

} // namespace

ShellCall PlanShellCall(const LaunchRequest& request, const LaunchPaths& paths) {
    switch (request.What) {
    case LaunchRequest::Action::Nothing:
    case LaunchRequest::Action::Refuse:
        return {};
    case LaunchRequest::Action::OpenDrive:
        return {{}, FileManager(), request.Target + u':', {}, ShowCommand::Normal};
    case LaunchRequest::Action::OpenTarget: {
        const QString target = HostTarget(request.Target, paths);
        const QString folder = IsAddress(target) ? QString() : ExistingFolder(request.StartIn, target, paths);
        return {{}, target, request.Parameter, folder, request.Show};
    }
    case LaunchRequest::Action::OpenBrowser:
        // An address holds no quote and no backslash, see BrowserAddress.
        return {QStringLiteral("open"),
                HostTarget(request.Target, paths),
                QString(u'"' + request.Parameter + u'"'),
                {},
                request.Show};
    }
    return {};
}

ShellOpener::~ShellOpener() {
    // Those that were given up are not told: a message of the system would end with this process.
    static_cast<void>(workers_.End(kWaitAtEnd));
}

void ShellOpener::Open(const LaunchRequest& request, const LaunchPaths& paths) {
    // The window that was pressed; the system's own questions appear in front of it.
    const HWND owner = GetActiveWindow();
    workers_.Run(request.Name,
                 [request, paths, owner](LaunchTurn& turn) { Start(request, paths, owner, turn); });
}

} // namespace paneda
