#include "app/main_program.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    // A panel out of sight is no reason to end.
    QApplication::setQuitOnLastWindowClosed(false);
    paneda::MainProgram program(paneda::MakePlatform(), QCoreApplication::applicationFilePath());
    return program.Run();
}
