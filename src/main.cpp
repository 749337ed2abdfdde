#include "program.h"
#include "qt/application.h"

int main(int argc, char* argv[])
{
    qt::Application application(argc, argv);
    Program program;
    program.Start();
    return QApplication::exec();
}
