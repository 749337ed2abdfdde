// A program that shows an empty window and no more: what the start of Vantrel is measured against.
#include <QApplication>
#include <QWidget>

#include "firstpaint.h"

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QWidget window;
    window.resize(800, 600);
    FirstPaint paint;
    window.show();
    return QApplication::exec();
}
