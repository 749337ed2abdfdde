// Plays a session script on a screen of a given width, in light, dark or high-contrast colours: what the
// pictures of tools/screens.sh are taken with.
//
//   screens WIDTH light|dark|contrast|dark-contrast FOLDER SCRIPT
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>
#include <fstream>
#include <iostream>

#include "play/player.h"
#include "program.h"
#include "qt/application.h"
#include "qt/desktopcolors.h"

namespace {

void SetColors(const QString& name)
{
    if (name == "dark") QApplication::setPalette(qt::DarkColors());
    if (name == "contrast") QApplication::setPalette(qt::HighContrastColors(false));
    if (name == "dark-contrast") QApplication::setPalette(qt::HighContrastColors(true));
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
        std::cerr << "usage: screens WIDTH light|dark|contrast|dark-contrast FOLDER SCRIPT\n";
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
    SetColors(QString::fromUtf8(argv[2]));
    std::ifstream file(argv[4]);
    play::Player player(argv[4], file, {transcript, QString::fromUtf8(argv[3])}, listener);
    vantrel.Start();
    player.Start();
    QApplication::exec();
    return static_cast<int>(player.Finish());
}
