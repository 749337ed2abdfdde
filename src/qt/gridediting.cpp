// One cell of an entry grid: how a text gets into it and how it is committed.
#include "basic/error.h"
#include "desktop/desktop.h"
#include "qt/entrygrid.h"
#include "qt/fields.h"
#include "qt/gridmodel.h"
#include "qt/text.h"

namespace qt {

// ---- typing ----

void EntryGrid::TypeText(const QString& text)
{
    for (const QChar character : text)
        TypeCharacter(character);
}

KeyAnswer EntryGrid::Judge(int row, int column, QChar character, bool first) const
{
    constexpr char16_t kFirstPrintable = ' ';
    constexpr char16_t kLastPrintable = '~';
    const char16_t code = character.unicode();
    if (IsClosed(row, column) || code < kFirstPrintable || code > kLastPrintable) return KeyAnswer::Refused;
    return rules_.Key(row, column, static_cast<char>(code), first);
}

// As if it were typed into an empty cell, up to the first character that is not taken.
KeyAnswer EntryGrid::JudgeText(int row, int column, const QString& text) const
{
    for (qsizetype i = 0; i < text.size(); ++i)
        if (const KeyAnswer answer = Judge(row, column, text[i], i == 0); answer != KeyAnswer::Taken)
            return answer;
    return KeyAnswer::Taken;
}

void EntryGrid::TypeCharacter(QChar character)
{
    const KeyAnswer answer = Judge(Row(), Column(), character, !editing_ || caret_ == 0);
    if (answer == KeyAnswer::Refused) ::Beep();
    if (answer != KeyAnswer::Taken) return;
    if (!editing_) {
        BeginEdit();
        typed_.clear();
        caret_ = 0;
    }
    typed_.insert(caret_, character);
    ++caret_;
    ShowEdit();
}

void EntryGrid::TakeBack()
{
    if (!editing_) {
        typed_ = rules_.BackspaceOnlyTyped ? QString() : model_->Text(Row(), Column());
        caret_ = static_cast<int>(typed_.size());
    }
    if (caret_ == 0 || IsClosed(Row(), Column())) {
        ::Beep();
        return;
    }
    if (!editing_) BeginEdit();
    typed_.remove(--caret_, 1);
    ShowEdit();
}

void EntryGrid::DeleteKey()
{
    if (within_ && caret_ < typed_.size()) {
        typed_.remove(caret_, 1);
        ShowEdit();
    } else if (within_) {
        ::Beep();
    } else if (HasBlock()) {
        EmptyBlock();
    } else {
        EmptyCell();
    }
}

void EntryGrid::EmptyCell()
{
    if (IsClosed(Row(), Column())) {
        ::Beep();
        return;
    }
    if (editing_ && rules_.DeleteNotInEdit) return;
    if (model_->Text(Row(), Column()).isEmpty()) return;
    if (!editing_) BeginEdit();
    typed_.clear();
    caret_ = 0;
    ShowEdit();
}

// The text of the cell stays; the caret goes into it.
void EntryGrid::EditWithin(int caret)
{
    if (IsClosed(Row(), Column())) {
        ::Beep();
        return;
    }
    if (!editing_) {
        BeginEdit();
        typed_ = former_;
    }
    within_ = true;
    caret_ = qBound(0, caret, static_cast<int>(typed_.size()));
    scrollTo(currentIndex());
    viewport()->update();
}

void EntryGrid::MoveCaret(int key)
{
    const int end = static_cast<int>(typed_.size());
    if (key == Qt::Key_Home) caret_ = 0;
    if (key == Qt::Key_End) caret_ = end;
    if (key == Qt::Key_Left) caret_ = qMax(0, caret_ - 1);
    if (key == Qt::Key_Right) caret_ = qMin(end, caret_ + 1);
    viewport()->update();
}

void EntryGrid::GiveBack()
{
    const int row = Row();
    const int column = Column();
    const QString former = former_;
    EndEdit();
    model_->SetText(row, column, former);
    if (history_ != nullptr) history_->GiveUp();
    if (rules_.Edited) rules_.Edited(row, column);
    viewport()->update();
}

void EntryGrid::BeginEdit()
{
    BeginStep();
    corner_ = {Column(), Row()};
    ShowBlock();
    former_ = model_->Text(Row(), Column());
    editing_ = true;
}

void EntryGrid::EndEdit()
{
    editing_ = within_ = refused_ = false;
}

void EntryGrid::ShowEdit()
{
    model_->SetText(Row(), Column(), typed_);
    Widen(Column(), typed_);
    scrollTo(currentIndex());
    viewport()->update(visualRect(currentIndex()));
    if (rules_.Edited) rules_.Edited(Row(), Column());
}

// ---- leaving ----

bool EntryGrid::FinishEdit()
{
    return Commit(false);
}

bool EntryGrid::Commit(bool always)
{
    const int row = Row();
    const int column = Column();
    if (!model_->Has(row, column) || model_->IsFixed(row, column)) return true;
    const QString text = model_->Text(row, column);
    const QString former = editing_ ? former_ : text;
    const bool counts = text != former || always || (refused_ && history_ == nullptr);
    const bool within = within_;
    if (counts)
        BeginStep();
    else if (refused_ && history_ != nullptr)
        history_->GiveUp();  // a refused value may stand in the record; nothing stood there before
    EndEdit();
    viewport()->update();
    const bool stored = !counts || ((!within || Passes(row, column, text)) && Store(row, column, text));
    if (stored || !model_->Has(row, column)) {
        EndStep();
        return true;
    }
    TakeRefusal(row, column, former);
    return false;
}

// Whether a text could have been typed from its beginning; a caret within it lets others come about.
bool EntryGrid::Passes(int row, int column, const QString& text)
{
    const KeyAnswer answer = JudgeText(row, column, text);
    if (answer == KeyAnswer::Refused) ::Beep();
    return answer == KeyAnswer::Taken;
}

bool EntryGrid::Store(int row, int column, const QString& text) const
{
    bool stored = false;  // nor is a number that does not fit
    Trap([&] { stored = rules_.Commit(row, column, FromQt(text)); });
    return stored;
}

// The former text comes back, or the cell is blank until it is entered again: leaving it commits that.
void EntryGrid::TakeRefusal(int row, int column, const QString& former)
{
    model_->SetText(row, column, rules_.RestoresRefused ? former : QString());
    GoTo(row, column);
    if (rules_.RestoresRefused) {
        if (history_ != nullptr) history_->GiveUp();
    } else {
        editing_ = refused_ = true;
        typed_.clear();
        caret_ = 0;
        former_ = former;
    }
    if (rules_.Edited) rules_.Edited(row, column);
}

}  // namespace qt
