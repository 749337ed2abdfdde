// vantrel-play: drives the program from session scripts.
#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryFile>
#include <algorithm>
#include <array>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "basic/files.h"
#include "play/player.h"
#include "program.h"
#include "qt/application.h"

namespace {

constexpr int kUnusableArguments = 2;
constexpr const char* kUsage =
    "usage: vantrel-play [--folder DIR] SCRIPT...\n"
    "Plays each script in a fresh session; '-' is standard input.\n";

struct Arguments {
    QString Folder = QDir::currentPath();
    std::vector<std::string> Scripts;
};

bool Complain(const std::string& what)
{
    std::cerr << "vantrel-play: " << what << '\n';
    return false;
}

bool TakeScript(const std::string& name, Arguments& arguments)
{
    const bool readable =
        name == "-" || (std::ifstream(name) && QFileInfo(QString::fromStdString(name)).isFile());
    arguments.Scripts.push_back(name);
    return readable || Complain(name + " cannot be read");
}

bool TakeFolder(const std::string& name, Arguments& arguments)
{
    arguments.Folder = QDir(QString::fromStdString(name)).absolutePath();
    return QDir(arguments.Folder).exists() || Complain("there is no folder " + name);
}

std::optional<Arguments> ReadArguments(const std::vector<std::string>& words)
{
    Arguments arguments;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        const bool isOption = word.starts_with("-") && word != "-";
        if (word == "--folder" && i + 1 < words.size()) {
            if (!TakeFolder(words[++i], arguments)) return std::nullopt;
        } else if (isOption) {
            Complain(word == "--folder" ? "--folder takes a folder" : "there is no option " + word);
            return std::nullopt;
        } else if (!TakeScript(word, arguments)) {
            return std::nullopt;
        }
    }
    if (arguments.Scripts.empty()) return std::nullopt;
    return arguments;
}

// Standard error is for steps that cannot be done; the off-screen platform talks about what it has not got.
void PassMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message.startsWith("This plugin does not support") || message.startsWith("QStandardPaths:")) return;
    std::cerr << qFormatLogMessage(type, context, message).toStdString() << std::endl;
}

int Play(const std::string& script, const QString& folder, std::string program)
{
    int count = 1;
    std::array<char*, 2> values{program.data(), nullptr};
    qInstallMessageHandler(PassMessage);
    const qt::Application application(count, values.data());
    play::Transcript transcript(std::cout);
    play::Listener listener(transcript);
    Program vantrel(std::make_unique<play::OverheardDialogs>(transcript));
    std::ifstream file(script);
    play::Player player(script, file, {transcript, folder}, listener);
    vantrel.Start();
    player.Start();
    QApplication::exec();
    return static_cast<int>(player.Finish());
}

// A session of its own: nothing of an earlier one is left in the process.
int PlayApart(const std::string& script, const QString& folder)
{
    QProcess session;
    session.setProcessChannelMode(QProcess::ForwardedChannels);
    session.setInputChannelMode(QProcess::ForwardedInputChannel);
    session.start(QCoreApplication::applicationFilePath(),
                  {"--folder", folder, QString::fromStdString(script)});
    session.waitForFinished(-1);
    if (session.error() == QProcess::UnknownError && session.exitStatus() == QProcess::NormalExit)
        return session.exitCode();
    std::cerr << script << ": the program ended abnormally\n";
    return static_cast<int>(play::Ending::NotDone);
}

int PlayEach(const Arguments& arguments, int count, char** values)
{
    const QCoreApplication application(count, values);
    int status = 0;
    for (const std::string& script : arguments.Scripts)
        status = std::max(status, PlayApart(script, arguments.Folder));
    return status;
}

// The off-screen platform with a screen on which the main window stands in its full size. The platform reads
// the file when the application is made.
bool DescribeScreen(QTemporaryFile& file)
{
    constexpr const char* kScreens =
        R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1920, "height": 1200,
                         "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";
    return file.open() && file.write(kScreens) > 0 && file.flush();
}

}  // namespace

int main(int argc, char* argv[])
{
    TakeSizeLimitAsError();
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words == std::vector<std::string>{"--help"}) {
        std::cout << kUsage;
        return 0;
    }
    const std::optional<Arguments> arguments = ReadArguments(words);
    if (!arguments) {
        std::cerr << kUsage;
        return kUnusableArguments;
    }

    // One dispatcher whose rest can be told, one platform on all machines.
    qputenv("QT_NO_GLIB", "1");
    QTemporaryFile screens;
    const bool described = DescribeScreen(screens);
    qputenv("QT_QPA_PLATFORM",
            described ? "offscreen:configfile=" + screens.fileName().toLocal8Bit() : QByteArray("offscreen"));
    if (arguments->Scripts.size() == 1) return Play(arguments->Scripts.front(), arguments->Folder, argv[0]);
    return PlayEach(*arguments, argc, argv);
}
