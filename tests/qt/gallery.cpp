// The pictures of problems, to be looked at or to be compared with answers found by other means.
//
//     gallery paint FOLDER light|dark|paper WIDTH HEIGHT PROBLEM...    a PNG file for each picture
//     gallery list MODULE COUNT SEED                                   random problems and what is told of
//     them
#include <QApplication>
#include <QDir>
#include <QPainter>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "qt/pictureview.h"
#include "qt/savepicture.h"
#include "shell/module.h"
#include "shell/session.h"
#include "support/impatient_screen.h"
#include "support/random_problems.h"

namespace {

// By the ending of its file; linear programs are solved with and without the condition of whole numbers.
std::vector<int> ModulesOf(const std::filesystem::path& file)
{
    std::vector<int> modules;
    for (int number = 1; number <= kModuleCount; ++number)
        if ("." + ModuleOf(number).Extension == file.extension().string()) modules.push_back(number);
    return modules;
}

std::string TextOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

QPalette Colors(bool dark)
{
    QPalette palette;
    palette.setColor(QPalette::Base, dark ? QColor(0x1E, 0x1E, 0x1E) : QColor(Qt::white));
    palette.setColor(QPalette::Text, dark ? QColor(0xF0, 0xF0, 0xF0) : QColor(0x1A, 0x1A, 0x1A));
    return palette;
}

void Paint(const picture::Picture& picture, const std::string& look, const QSize& size, const QString& path)
{
    if (look == "paper") {
        qt::ImageOf(picture).save(path);
        return;
    }
    qt::PictureCanvas canvas(nullptr);
    canvas.setPalette(Colors(look == "dark"));
    canvas.SetPicture(&picture);
    canvas.FitTo(size);
    for (int i = 0; i < 3; ++i)  // what has no place is told in a note, which takes its room
        canvas.grab();
    canvas.grab().save(path);
}

// The answers that a problem file says nothing of: one picture for each that changes it.
std::vector<random_problems::Given> Givens(int module, const std::string& text)
{
    using random_problems::Given;
    const Given first{.Module = module, .Text = text, .Maximize = module == 10, .End = 8, .Count = "4"};
    std::vector<Given> givens;
    for (int which = 1; which <= (module == 11 ? 4 : module == 10 ? 3 : 1); ++which) {
        Given given = first;
        given.Method = given.Criterion = which;
        const std::array<const char*, 4> parameters = {"3", "0.3", "6", "4"};
        given.Parameter = parameters.at(static_cast<std::size_t>(which) - 1);
        givens.push_back(given);
    }
    return givens;
}

void PaintProblem(const random_problems::Given& given, const std::string& name,
                  const std::vector<std::string>& arguments)
{
    const QDir folder(QString::fromStdString(arguments[2]));
    const QSize size(std::stoi(arguments[4]), std::stoi(arguments[5]));
    FakeDesktop desktop;
    random_problems::Solve(desktop.forms, given);
    int number = 0;
    for (const picture::Picture& picture : CurrentModule().Routines->Pictures())
        Paint(picture, arguments[3], size,
              folder.filePath(QStringLiteral("%1-%2-%3.png")
                                  .arg(given.Module, 2, 10, QLatin1Char('0'))
                                  .arg(QString::fromStdString(name))
                                  .arg(++number)));
}

int PaintAll(const std::vector<std::string>& arguments)
{
    QDir().mkpath(QString::fromStdString(arguments[2]));
    for (std::size_t i = 6; i < arguments.size(); ++i) {
        const std::filesystem::path file = arguments[i];
        for (const int module : ModulesOf(file)) {
            int variant = 0;
            for (const random_problems::Given& given : Givens(module, TextOf(file)))
                PaintProblem(given, file.stem().string() + "-" + std::to_string(++variant), arguments);
        }
    }
    return 0;
}

int ListAll(const std::vector<std::string>& arguments)
{
    const int module = std::stoi(arguments[2]);
    random_problems::Maker maker(static_cast<unsigned>(std::stoul(arguments[4])));
    for (int i = std::stoi(arguments[3]); i > 0; --i) {
        const random_problems::Given given = maker.Next(module);
        FakeDesktop desktop;
        ImpatientScreen screen;
        desktop::Install({&desktop.dialogs, &screen, &desktop.forms, &desktop.printer});
        random_problems::Solve(desktop.forms, given);
        std::cout << "problem " << given.Answers << '\n' << given.Text;
        std::cout << "pictures\n";
        const auto pictures = CurrentModule().Routines->Pictures();
        int number = 0;
        for (const picture::Picture& picture : pictures) {
            for (const std::string& line : Listing(picture, ++number, static_cast<int>(pictures.size())))
                std::cout << line << '\n';
            for (const std::string& line : Describe(picture))
                std::cout << "told " << line << '\n';
        }
        std::cout << "end\n";
    }
    return 0;
}

}  // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const std::vector<std::string> arguments(argv, argv + argc);
    int count = 1;
    const QApplication application(count, argv);
    if (arguments.size() > 6 && arguments[1] == "paint") return PaintAll(arguments);
    if (arguments.size() == 5 && arguments[1] == "list") return ListAll(arguments);
    std::cerr << "usage: gallery paint FOLDER light|dark|paper WIDTH HEIGHT PROBLEM...\n"
                 "       gallery list MODULE COUNT SEED\n";
    return 2;
}
