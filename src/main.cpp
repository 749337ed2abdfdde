#include "program.h"
#include "qt/application.h"
#include "qt/icon.h"

int main(int argc, char* argv[])
{
    qt::Application application(argc, argv);
    QApplication::setApplicationName("Vantrel");
    QApplication::setApplicationVersion("6.0");
    QApplication::setDesktopFileName("vantrel");
    QApplication::setWindowIcon(qt::ProgramIcon());
    QApplication::setQuitOnLastWindowClosed(false);  // Exit ends the program
    Program program;
    program.Start();
    return QApplication::exec();
}
