#include "app/main_program.h"

#include <QApplication>

#include <vector>

int main(int argc, char** argv) {
    // As an argument, since started programs would inherit an environment. What the user asks for comes
    // behind it and wins.
    QByteArray option = "-platform";
    QByteArray platform = paneda::PreferredToolkitPlatform();
    std::vector<char*> arguments(argv, argv + argc);
    if (!platform.isEmpty() && argc > 0)
        arguments.insert(arguments.begin() + 1, {option.data(), platform.data()});
    int count = int(arguments.size());
    arguments.push_back(nullptr);
    QApplication application(count, arguments.data());
    // A panel out of sight is no reason to end.
    QApplication::setQuitOnLastWindowClosed(false);
    paneda::MainProgram program(paneda::MakePlatform(), QCoreApplication::applicationFilePath());
    return program.Run();
}
