// A program that shows an empty window and no more: what the start of Vantrel is measured against. With an
// argument the window shows that text, so that the program loads the fonts of the desktop as well.
#include <QApplication>
#include <QLabel>

#include "firstpaint.h"

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QLabel window;
    if (argc > 1) window.setText(argv[1]);
    window.resize(800, 600);
    FirstPaint paint;
    window.show();
    return QApplication::exec();
}
