#include "app/main_program.h"

#include <QApplication>

#include <vector>

int main(int argc, char** argv) {
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
    paneda::MainProgram program(paneda::MakePlatform(), QCoreApplication::applicationFilePath());
    return program.Run();
}
