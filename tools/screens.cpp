// Plays a session script on a screen of a given width, in light or dark colours: what the pictures of
// tools/screens.sh are taken with.
//
//   screens WIDTH light|dark FOLDER SCRIPT
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>
#include <fstream>
#include <iostream>

#include "play/player.h"
#include "program.h"
#include "qt/application.h"

namespace {

QPalette Dark()
{
    QPalette colors(QColor(0x31, 0x36, 0x3b), QColor(0x2a, 0x2e, 0x32));
    colors.setColor(QPalette::Base, QColor(0x1b, 0x1e, 0x20));
    colors.setColor(QPalette::AlternateBase, QColor(0x23, 0x26, 0x29));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colors.setColor(role, QColor(0xfc, 0xfc, 0xfc));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        colors.setColor(QPalette::Disabled, role, QColor(0x7f, 0x83, 0x86));
    colors.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
    colors.setColor(QPalette::HighlightedText, QColor(0x1b, 0x1e, 0x20));
    return colors;
}

// The off-screen platform takes its screen from a file.
void MakeScreen(const QString& file, int width)
{
    QFile config(file);
    if (!config.open(QIODevice::WriteOnly)) return;
    QTextStream(&config) << R"({"screens":[{"name":"s","x":0,"y":0,"width":)" << width << R"(,"height":)"
                         << width * 3 / 4 << R"(,"logicalDpi":96,"logicalBaseDpi":96,"dpr":1}]})";
    config.close();
    qputenv("QT_QPA_PLATFORM", ("offscreen:configfile=" + file).toUtf8());
}

}  // namespace

int main(int argc, char* argv[])
{
    constexpr int kArguments = 5;
    if (argc != kArguments) {
        std::cerr << "usage: screens WIDTH light|dark FOLDER SCRIPT\n";
        return 2;
    }
    const QTemporaryDir folder;
    MakeScreen(folder.filePath("screen.json"), QString::fromUtf8(argv[1]).toInt());
    qputenv("QT_NO_GLIB", "1");
    int count = 1;
    const qt::Application application(count, argv);
    play::Transcript transcript(std::cout);
    play::Listener listener(transcript);
    Program vantrel(std::make_unique<play::OverheardDialogs>(transcript));
    if (QString::fromUtf8(argv[2]) == "dark") QApplication::setPalette(Dark());
    std::ifstream file(argv[4]);
    play::Player player(argv[4], file, {transcript, QString::fromUtf8(argv[3])}, listener);
    vantrel.Start();
    player.Start();
    QApplication::exec();
    return static_cast<int>(player.Finish());
}
