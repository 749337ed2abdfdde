// vantrel-play: drives the program from session scripts.
#include <QApplication>
#include <QDir>
#include <QProcess>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <optional>

#include "play/player.h"
#include "program.h"
#include "qt/application.h"

namespace {

constexpr int kUnusableArguments = 2;

struct Arguments {
    QString Folder = QDir::currentPath();
    std::vector<std::string> Scripts;
};

int Usage(std::FILE* out, int status)
{
    std::fputs(
        "usage: vantrel-play [--folder DIR] SCRIPT...\n"
        "Plays each script in a fresh session; '-' is standard input.\n",
        out);
    return status;
}

bool TakeScript(const std::string& name, Arguments& arguments)
{
    const bool readable =
        name == "-" || (std::ifstream(name) && QFileInfo(QString::fromStdString(name)).isFile());
    if (!readable) std::fprintf(stderr, "vantrel-play: %s cannot be read\n", name.c_str());
    arguments.Scripts.push_back(name);
    return readable;
}

bool TakeFolder(const char* name, Arguments& arguments)
{
    arguments.Folder = QDir(QString::fromLocal8Bit(name)).absolutePath();
    if (QDir(arguments.Folder).exists()) return true;
    std::fprintf(stderr, "vantrel-play: there is no folder %s\n", name);
    return false;
}

std::optional<Arguments> ReadArguments(int count, char* values[])
{
    Arguments arguments;
    for (int i = 1; i < count; ++i) {
        const std::string argument = values[i];
        if (argument == "--folder") {
            if (++i == count || !TakeFolder(values[i], arguments)) return std::nullopt;
        } else if (argument.starts_with("-") && argument != "-") {
            std::fprintf(stderr, "vantrel-play: there is no option %s\n", argument.c_str());
            return std::nullopt;
        } else if (!TakeScript(argument, arguments)) {
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
    std::fprintf(stderr, "%s\n", qFormatLogMessage(type, context, message).toLocal8Bit().constData());
}

int Play(const std::string& script, const QString& folder, char* program)
{
    int count = 1;
    char* values[] = {program, nullptr};
    qInstallMessageHandler(PassMessage);
    qt::Application application(count, values);
    play::Transcript transcript(stdout);
    play::Listener listener(transcript);
    Program vantrel(std::make_unique<play::OverheardDialogs>(transcript));
    std::ifstream file(script);
    play::Player player(script, script == "-" ? std::cin : file, {transcript, folder}, listener);
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
    std::fprintf(stderr, "%s: the program ended abnormally\n", script.c_str());
    return static_cast<int>(play::Ending::NotDone);
}

int PlayEach(const Arguments& arguments, int count, char* values[])
{
    const QCoreApplication application(count, values);
    int status = 0;
    for (const std::string& script : arguments.Scripts)
        status = std::max(status, PlayApart(script, arguments.Folder));
    return status;
}

}  // namespace

int main(int argc, char* argv[])
{
    if (argc == 2 && std::string(argv[1]) == "--help") return Usage(stdout, 0);
    const std::optional<Arguments> arguments = ReadArguments(argc, argv);
    if (!arguments) return Usage(stderr, kUnusableArguments);

    // One dispatcher whose rest can be told, one platform on all machines.
    qputenv("QT_NO_GLIB", "1");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (arguments->Scripts.size() == 1) return Play(arguments->Scripts.front(), arguments->Folder, argv[0]);
    return PlayEach(*arguments, argc, argv);
}
