// Vantrel as main.cpp starts it, ended when its first window is painted.
#include "firstpaint.h"
#include "program.h"
#include "qt/application.h"
#include "qt/desktopcolors.h"

int main(int argc, char* argv[])
{
    qt::Application application(argc, argv);
    FirstPaint paint;
    Program program;
    program.Start();
    qt::FollowDesktopColors();
    return QApplication::exec();
}
