// The activities of a project: the table of what has been entered, and below it the current activity with
// its predecessors and times.
#pragma once

#include <functional>
#include <vector>

#include "project/VtPert_CPM.h"
#include "qt/blocktext.h"
#include "qt/entrygrid.h"
#include "qt/forms.h"

class QBoxLayout;
class QLabel;
class QKeyEvent;
class QLineEdit;
class QListWidget;
class QVBoxLayout;

class frmPERT_CPM : public qt::ChildForm {
    Q_OBJECT

public:
    explicit frmPERT_CPM(QWidget* parent);
    void Unloading() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void AddTable(QVBoxLayout* page);
    void AddActivities(QBoxLayout* row);
    void AddPredecessors(QBoxLayout* row);
    void AddTimes(QBoxLayout* row);

    void FitLists();
    void FillTable();
    void GoToField(int row, int column);
    void ShowActivity(int activity);
    void ShowPredecessors(int activity);
    void TakePredecessors();
    bool TakeTime(std::size_t index);
    void CheckTimes();

    // What stands in the table and in the record behind it.
    struct Entries {
        VtPert_CPM::PertProblem Record;
        std::vector<std::string> Cells;  // predecessors and times, row by row
    };
    class Step;
    void Enter(const std::function<void()>& change);
    [[nodiscard]] Entries Remember() const;
    void Restore(const Entries& entries, int activity);
    bool UsesHistory(const QWidget& watched, const QKeyEvent& key);
    void ShowMenu(QListWidget& list, const QPoint& global);

    bool UsesKeys(QWidget& watched, const QKeyEvent& key);
    void CopyTable(int fromColumn) const;
    [[nodiscard]] int PasteColumn(const QWidget& watched, int columns) const;
    bool Paste(QWidget& watched, bool listTakesText);
    bool PasteBlock(const qt::BlockText& block, int column);
    bool PasteCell(int column, const QString& text);
    bool PastePredecessors(const std::string& text);

    qt::EntryGrid* gridDisplayEdit = nullptr;
    QListWidget* lstActivityName = nullptr;
    QLabel* lblPredecessor = nullptr;
    QListWidget* lstPredecessor = nullptr;
    QLabel* lblActivityTime = nullptr;
    std::vector<QLineEdit*> timeBoxes_;  // the one of a known time, or three
    bool entering_ = false;              // a step is being made
};
