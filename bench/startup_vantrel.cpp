// Vantrel as main.cpp starts it, ended when its first window is painted.
#include <QApplication>

#include "firstpaint.h"
#include "program.h"
#include "qt/icon.h"

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName("Vantrel");
    QApplication::setWindowIcon(qt::ProgramIcon());
    FirstPaint paint;
    Program program;
    program.Start();
    return QApplication::exec();
}
