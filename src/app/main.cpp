#include "app/main_program.h"
#include "platform/process_end.h"

#include <QApplication>

#include <vector>

namespace {

// Milliseconds from the last save to the end of the process, whatever is still going on then. The waits of
// the destructors that take part in the end come to less.
constexpr int kEndWithin = 1000;

int RunProgram(int argc, char** argv) {
    // Set by an argument, because programs that the panel starts would inherit an environment variable. It
    // comes first, so that an option that the user gave overrides it.
    QByteArray option = "-platform";
    QByteArray platform = paneda::PreferredToolkitPlatform();
    std::vector<char*> arguments(argv, argv + argc);
    if (!platform.isEmpty() && argc > 0)
        arguments.insert(arguments.begin() + 1, {option.data(), platform.data()});
    int count = int(arguments.size());
    arguments.push_back(nullptr);
    QApplication application(count, arguments.data());
    // The program goes on when the panel is hidden.
    QApplication::setQuitOnLastWindowClosed(false);
    paneda::MainProgram program(paneda::MakePlatform(), QCoreApplication::applicationFilePath(),
                                [] { paneda::EndProcessWithin(kEndWithin); });
    return program.Run();
}

} // namespace

int main(int argc, char** argv) {
    const int status = RunProgram(argc, argv);
    // Here the application object has gone, by which the clipboard and the windows are given back in order.
    // What is left is only memory.
    paneda::EndProcess(status);
}
