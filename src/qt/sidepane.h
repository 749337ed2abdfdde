// What stands beside a report: the tabs Picture, Steps and Meaning. Each is computed when it is first looked
// at.
#pragma once

#include <QBasicTimer>
#include <QWidget>
#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <thread>
#include <utility>
#include <vector>

#include "picture/picture.h"

class QAbstractButton;
class QButtonGroup;
class QHBoxLayout;
class QLabel;
class QListWidget;
class QPlainTextEdit;
class QSplitter;
class QTabWidget;
class QTextEdit;
class QToolButton;

namespace qt {

class PictureView;

// Where the contents come from. What is missing has no contents.
struct PaneSources {
    std::function<std::vector<picture::Picture>()> Pictures = {};
    std::function<std::vector<picture::Step>()> Steps = {};
    std::function<std::vector<picture::Sentence>()> Meaning = {};
    // A second opinion: asked in a thread of its own, which ends when it is told to stop; told in this one.
    using Telling = std::function<std::vector<picture::Sentence>()>;
    using Inquiry = std::function<Telling(const std::stop_token& stop)>;
    std::function<Inquiry()> Opinion = {};

    [[nodiscard]] bool AreMissing() const { return !Pictures && !Steps && !Meaning; }
};

// An inquiry under way. The telling is there once it is done.
struct BesideRun {
    PaneSources::Telling Tell;
    std::stop_source Stop;
    std::atomic<bool> Done = false;
};

class SidePane : public QWidget {
    Q_OBJECT

public:
    static constexpr int kLeastWidth = 260;

    explicit SidePane(QWidget* parent);
    ~SidePane() override;
    SidePane(const SidePane&) = delete;
    SidePane& operator=(const SidePane&) = delete;

    void SetSources(PaneSources sources);  // forgets what was computed
    void Clear();
    [[nodiscard]] bool HasSources() const { return !sources_.AreMissing(); }

    // Computed by now at the latest.
    const std::vector<picture::Picture>& Pictures();
    const std::vector<picture::Step>& Steps();
    const std::vector<picture::Sentence>& Meaning();
    // The same with the second opinion behind it, which this waits for.
    const std::vector<picture::Sentence>& WholeMeaning();

    void TakeFocus();  // into the tab in front
    void NextTab(int by);

    // Where the file dialogs begin.
    void SetFolder(std::function<std::string()> folder) { folder_ = std::move(folder); }

protected:
    void showEvent(QShowEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void Build();  // the tabs, at the first look: the program starts without them
    QWidget* MakePicturePage();
    QWidget* MakeStepsPage();
    QWidget* MakeMeaningPage();
    void Look();     // fills the tab in front, once the program has shown what it has to show
    void FillTab();  // now
    void FillPictures();
    void FillSteps();
    void ShareHeight();
    void FillMeaning();
    void ShowMeaning();
    void AskOpinion();   // once
    void DropOpinion();  // nobody waits for it any more
    void TellOpinion();  // behind the meaning, when it has come
    void ShowPicture(std::size_t number);
    void ShowStep(int row);
    void ShowStepPicture(const picture::Step& step);
    void ConnectMenu(PictureView& view);
    void ShowPictureMenu(PictureView& view, const QPoint& at);
    void ShowStepsMenu(const QPoint& at);
    void SavePictureAs(const picture::Picture& picture);
    void SaveStepsAs();
    void CopyText(const QString& text);
    [[nodiscard]] QString TextOfStep(const picture::Step& step) const;

    PaneSources sources_;
    std::function<std::string()> folder_;
    std::optional<std::vector<picture::Picture>> pictures_;
    std::optional<std::vector<picture::Step>> steps_;
    std::optional<std::vector<picture::Sentence>> meaning_;
    std::array<bool, 3> filled_{};
    QBasicTimer look_;
    std::shared_ptr<BesideRun> opinion_;  // what was asked for the present sources
    bool asked_ = false;
    QBasicTimer wait_;
    std::vector<std::pair<std::thread, std::shared_ptr<BesideRun>>> threads_;

    QTabWidget* tabs_ = nullptr;
    QWidget* buttonRow_ = nullptr;
    QHBoxLayout* buttons_ = nullptr;
    QButtonGroup* group_ = nullptr;
    PictureView* view_ = nullptr;
    QSplitter* stepParts_ = nullptr;
    bool partedByHand_ = false;
    QListWidget* list_ = nullptr;
    QLabel* why_ = nullptr;
    QPlainTextEdit* figures_ = nullptr;
    QToolButton* arithmetic_ = nullptr;
    PictureView* stepView_ = nullptr;
    QTextEdit* meaningText_ = nullptr;
};

}  // namespace qt
