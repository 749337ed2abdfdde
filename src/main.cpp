#include "program.h"
#include "qt/application.h"
#include "qt/desktopcolors.h"

int main(int argc, char* argv[])
{
    qt::Application application(argc, argv);
    Program program;
    program.Start();
    qt::FollowDesktopColors();
    return QApplication::exec();
}
