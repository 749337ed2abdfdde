#include "basic/files.h"
#include "program.h"
#include "qt/application.h"
#include "qt/desktopcolors.h"

int main(int argc, char* argv[])
{
    TakeSizeLimitAsError();  // the toolkit may write files from its beginning on
    qt::Application application(argc, argv);
    Program program;
    program.Start();
    qt::FollowDesktopColors();
    return QApplication::exec();
}
