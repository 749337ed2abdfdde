#include "qt/entrygrid.h"

#include <QAbstractButton>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyleOptionHeader>
#include <QStyledItemDelegate>

#include "basic/error.h"
#include "desktop/desktop.h"
#include "qt/application.h"
#include "qt/colors.h"
#include "qt/fields.h"
#include "qt/forms.h"
#include "qt/gridmodel.h"
#include "qt/text.h"

namespace qt {
namespace {

constexpr int kDefaultCharacters = 10;
constexpr int kCellPadding = 14;  // beside a text, both sides together

}  // namespace

KeyAnswer NumberKey(char character)
{
    const bool taken = (character >= '0' && character <= '9') || character == '-' || character == '.';
    return taken ? KeyAnswer::Taken : KeyAnswer::Refused;
}

// The grid as the logic sees it.
class EntryGrid::CellsOfGrid : public Grid {
public:
    explicit CellsOfGrid(EntryGrid& grid) : grid_(grid) {}

    void Resize(int rows, int columns, int fixedRows, int fixedColumns) override
    {
        grid_.Resize(rows, columns, fixedRows, fixedColumns);
    }
    [[nodiscard]] int Rows() const override { return grid_.model_->Rows(); }
    [[nodiscard]] int Columns() const override { return grid_.model_->Columns(); }
    [[nodiscard]] std::string Text(int row, int column) const override
    {
        return FromQt(grid_.model_->Text(row, column));
    }
    void SetText(int row, int column, std::string_view text) override
    {
        grid_.SetText(row, column, ToQt(text));
    }
    [[nodiscard]] int Row() const override { return grid_.Row(); }
    [[nodiscard]] int Column() const override { return grid_.Column(); }
    bool FinishEdit() override { return grid_.FinishEdit(); }
    void Select(int row, int column) override { grid_.Select(row, column); }
    void SetColumnWidth(int column, int characters) override { grid_.SetColumnWidth(column, characters); }
    void SetFocus() override { grid_.setFocus(Qt::OtherFocusReason); }

private:
    EntryGrid& grid_;
};

// Draws a cell with the lines around it. The grid that has the focus fills its current cell, another one
// frames it; a cell in edit has a caret behind its text.
class EntryGrid::CellPainter : public QStyledItemDelegate {
public:
    explicit CellPainter(EntryGrid& grid) : QStyledItemDelegate(&grid), grid_(grid) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const bool current = index == grid_.currentIndex();
        const bool filled = current && grid_.hasFocus();
        QStyleOptionViewItem cell = option;
        cell.state.setFlag(QStyle::State_Selected, filled);
        cell.state.setFlag(QStyle::State_HasFocus, false);
        cell.palette.setColor(QPalette::HighlightedText, TextOnFilled(cell.palette));
        QStyledItemDelegate::paint(painter, cell, index);
        DrawLines(*painter, option);
        if (current && !filled) DrawFrame(*painter, option);
        if (filled && grid_.editing_) DrawCaret(*painter, cell);
    }

private:
    static QColor TextOnFilled(const QPalette& palette)
    {
        return ReadableOn(palette.color(QPalette::Highlight), palette.color(QPalette::HighlightedText));
    }

    // Between the colours of text and ground, so that it shows in a dark palette as well.
    static void DrawLines(QPainter& painter, const QStyleOptionViewItem& cell)
    {
        constexpr float kShare = 0.25F;
        const QColor text = cell.palette.color(QPalette::Text);
        const QColor base = cell.palette.color(QPalette::Base);
        const auto mix = [](float a, float b) { return kShare * a + (1 - kShare) * b; };
        painter.setPen(QColor::fromRgbF(mix(text.redF(), base.redF()), mix(text.greenF(), base.greenF()),
                                        mix(text.blueF(), base.blueF())));
        painter.drawLine(cell.rect.bottomLeft(), cell.rect.bottomRight());
        painter.drawLine(cell.rect.topRight(), cell.rect.bottomRight());
    }

    static void DrawFrame(QPainter& painter, const QStyleOptionViewItem& cell)
    {
        constexpr int kWidth = 2;
        const QColor wanted = cell.palette.color(QPalette::Highlight);
        const bool seen = Contrast(wanted, cell.palette.color(QPalette::Base)) >= kVisible;
        painter.setPen(QPen(seen ? wanted : cell.palette.color(QPalette::Text), kWidth));
        painter.drawRect(cell.rect.adjusted(1, 1, -1, -1));
    }

    static void DrawCaret(QPainter& painter, const QStyleOptionViewItem& cell)
    {
        constexpr int kInset = 3;
        painter.setPen(cell.palette.color(QPalette::HighlightedText));
        painter.drawLine(cell.rect.topRight() + QPoint(-kInset, kInset),
                         cell.rect.bottomRight() - QPoint(kInset, kInset));
    }

    EntryGrid& grid_;
};

EntryGrid::EntryGrid(const char* name, std::string_view description, EntryRules rules)
    : model_(new GridModel(this)), cells_(std::make_unique<CellsOfGrid>(*this)), rules_(std::move(rules))
{
    setObjectName(QString::fromUtf8(name));
    setAccessibleName(ToQt(description));
    setModel(model_);
    setItemDelegate(new CellPainter(*this));
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setShowGrid(false);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setHorizontalScrollMode(ScrollPerPixel);
    for (QHeaderView* header : {horizontalHeader(), verticalHeader()}) {
        header->setSectionsClickable(false);
        header->setHighlightSections(false);
    }
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setCornerButtonEnabled(false);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
    if (auto* corner = findChild<QAbstractButton*>()) corner->installEventFilter(this);
    Measure();
    if (auto* application = qobject_cast<Application*>(qApp))
        application->Guard(this, Leaving::Grid, [this] {
            if (FinishEdit()) return true;
            setFocus(Qt::OtherFocusReason);
            return false;
        });
}

EntryGrid::~EntryGrid() = default;

Grid& EntryGrid::Cells()
{
    return *cells_;
}

int EntryGrid::Row() const
{
    return qMax(0, currentIndex().row());
}

int EntryGrid::Column() const
{
    return qMax(0, currentIndex().column());
}

// ---- contents ----

void EntryGrid::Resize(int rows, int columns, int fixedRows, int fixedColumns)
{
    if (rows < 0 || columns < 0) Raise(ErrorNumber::SubscriptOutOfRange);
    editing_ = false;
    model_->Resize(rows, columns, fixedRows, fixedColumns);
    characters_.assign(static_cast<std::size_t>(columns), kDefaultCharacters);
    horizontalHeader()->setVisible(fixedRows > 0);
    verticalHeader()->setVisible(fixedColumns > 0);
    for (int row = 0; row < rows; ++row)
        setRowHidden(row, row < fixedRows);
    for (int column = 0; column < columns; ++column)
        setColumnHidden(column, column < fixedColumns);
    Measure();
    if (model_->Has(1, 1))
        Select(1, 1);
    else if (model_->Has(0, 0))
        Select(0, 0);
}

void EntryGrid::SetText(int row, int column, const QString& text)
{
    if (row == Row() && column == Column() && model_->Text(row, column) != text) editing_ = false;
    model_->SetText(row, column, text);
    Widen(column, text);
}

void EntryGrid::SetColumnWidth(int column, int characters)
{
    if (!model_->Has(0, column)) Raise(ErrorNumber::SubscriptOutOfRange);
    characters_[static_cast<std::size_t>(column)] = characters;
    FitColumn(column);
}

void EntryGrid::Select(int row, int column)
{
    if (!model_->Has(row, column)) Raise(ErrorNumber::SubscriptOutOfRange);
    editing_ = false;
    viewport()->update();
    GoTo(row, column);
}

// ---- editing ----

bool EntryGrid::IsClosed() const
{
    return model_->IsFixed(Row(), Column()) || (rules_.Closed && rules_.Closed(Row(), Column()));
}

void EntryGrid::TypeText(const QString& text)
{
    for (const QChar character : text)
        TypeCharacter(character);
}

KeyAnswer EntryGrid::Judge(QChar character) const
{
    constexpr char16_t kFirstPrintable = ' ';
    constexpr char16_t kLastPrintable = '~';
    const char16_t code = character.unicode();
    if (IsClosed() || code < kFirstPrintable || code > kLastPrintable) return KeyAnswer::Refused;
    return rules_.Key(Row(), Column(), static_cast<char>(code), !editing_ || typed_.isEmpty());
}

void EntryGrid::TypeCharacter(QChar character)
{
    const KeyAnswer answer = Judge(character);
    if (answer == KeyAnswer::Refused) ::Beep();
    if (answer != KeyAnswer::Taken) return;
    if (!editing_) {
        BeginEdit();
        typed_.clear();
    }
    typed_ += character;
    ShowEdit();
}

void EntryGrid::TakeBack()
{
    if (!editing_) typed_ = rules_.BackspaceOnlyTyped ? QString() : model_->Text(Row(), Column());
    if (typed_.isEmpty() || IsClosed()) {
        ::Beep();
        return;
    }
    if (!editing_) BeginEdit();
    typed_.chop(1);
    ShowEdit();
}

void EntryGrid::EmptyCell()
{
    if (IsClosed()) {
        ::Beep();
        return;
    }
    if (editing_ && rules_.DeleteNotInEdit) return;
    if (model_->Text(Row(), Column()).isEmpty()) return;
    if (!editing_) BeginEdit();
    typed_.clear();
    ShowEdit();
}

void EntryGrid::BeginEdit()
{
    former_ = model_->Text(Row(), Column());
    editing_ = true;
}

void EntryGrid::ShowEdit()
{
    model_->SetText(Row(), Column(), typed_);
    Widen(Column(), typed_);
    viewport()->update(visualRect(currentIndex()));
    if (rules_.Edited) rules_.Edited(Row(), Column());
}

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
    if (text == former && !always) {
        editing_ = false;
        return true;
    }
    editing_ = false;
    bool stored = true;
    Trap([&] { stored = rules_.Commit(row, column, FromQt(text)); });
    viewport()->update();
    if (stored || !model_->Has(row, column)) return true;
    model_->SetText(row, column, rules_.RestoresRefused ? former : QString());
    GoTo(row, column);
    if (rules_.Edited) rules_.Edited(row, column);
    return false;
}

// ---- keys and clicks ----

void EntryGrid::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    if (event->key() == Qt::Key_Alt || (event->modifiers() & Qt::AltModifier) != 0) {
        if (FinishEdit()) desktop::TheForms().FocusMenu();
        return;
    }
    if (!model_->Has(Row(), Column())) return;
    switch (event->key()) {
        case Qt::Key_Delete:
            EmptyCell();
            break;
        case Qt::Key_Backspace:
            TakeBack();
            break;
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            Move(event->key());
            break;
        default:
            TypeText(event->text());
    }
}

// Of several grids the one that was used last goes on.
void EntryGrid::focusInEvent(QFocusEvent* event)
{
    QTableView::focusInEvent(event);
    LeadKeysTo(this);
}

void EntryGrid::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    const QModelIndex clicked = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !clicked.isValid()) return;
    const int row = clicked.row();
    const int column = clicked.column();
    const bool leaves = row != Row() || column != Column();
    if (Commit(leaves && rules_.ClickAlwaysCommits) && model_->Has(row, column)) GoTo(row, column);
}

void EntryGrid::Move(int key)
{
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!Commit(enter)) return;
    switch (key) {
        case Qt::Key_Left:
            return MoveBy(0, -1);
        case Qt::Key_Right:
            return MoveBy(0, 1);
        case Qt::Key_Up:
            return MoveBy(-1, 0);
        case Qt::Key_Down:
            return MoveBy(1, 0);
        case Qt::Key_Tab:
            return MoveForward();
        case Qt::Key_Backtab:
            return MoveBackward();
        case Qt::Key_Home:
            return GoTo(Row(), model_->FixedColumns());
        case Qt::Key_End:
            return GoTo(Row(), model_->Columns() - 1);
        case Qt::Key_PageUp:
            return GoTo(qMax(model_->FixedRows(), Row() - RowsOfPage()), Column());
        case Qt::Key_PageDown:
            return GoTo(qMin(model_->Rows() - 1, Row() + RowsOfPage()), Column());
        default:
            return MoveDownByEnter();
    }
}

void EntryGrid::MoveBy(int rows, int columns)
{
    const int row = Row() + rows;
    const int column = Column() + columns;
    if (!model_->Has(row, column) || model_->IsFixed(row, column))
        ::Beep();
    else
        GoTo(row, column);
}

void EntryGrid::MoveDownByEnter()
{
    if (Row() + 1 < model_->Rows())
        GoTo(Row() + 1, Column());
    else if (rules_.EnterBeepsAtLastRow)
        ::Beep();
}

void EntryGrid::MoveForward()
{
    if (Column() + 1 < model_->Columns())
        GoTo(Row(), Column() + 1);
    else if (Row() + 1 < model_->Rows())
        GoTo(Row() + 1, model_->FixedColumns());
    else if (rules_.LeaveForward)
        rules_.LeaveForward();
    else
        GoTo(model_->FixedRows(), model_->FixedColumns());
}

void EntryGrid::MoveBackward()
{
    if (Column() > model_->FixedColumns())
        GoTo(Row(), Column() - 1);
    else if (Row() > model_->FixedRows())
        GoTo(Row() - 1, model_->Columns() - 1);
    else if (rules_.LeaveBackward)
        rules_.LeaveBackward();
    else
        GoTo(model_->Rows() - 1, model_->Columns() - 1);
}

int EntryGrid::RowsOfPage() const
{
    return qMax(1, viewport()->height() / verticalHeader()->defaultSectionSize() - 1);
}

void EntryGrid::GoTo(int row, int column)
{
    const QModelIndex cell = model_->index(row, column);
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    scrollTo(cell);
}

// ---- sizes ----

int EntryGrid::WidthOf(const QString& text) const
{
    return text.isEmpty() ? 0 : fontMetrics().horizontalAdvance(text) + kCellPadding;
}

int EntryGrid::AskedWidth(int column) const
{
    const int digit = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    return characters_[static_cast<std::size_t>(column)] * digit + kCellPadding;
}

void EntryGrid::Measure()
{
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    for (int column = 0; column < model_->Columns(); ++column)
        FitColumn(column);
    updateGeometry();
}

// As wide as was asked for, or as the texts of the column need.
int EntryGrid::NeededWidth(int column) const
{
    int width = AskedWidth(column);
    for (int row = 0; row < model_->Rows(); ++row)
        width = qMax(width, WidthOf(model_->Text(row, column)));
    return width;
}

void EntryGrid::FitColumn(int column)
{
    const bool shared = partner_ != nullptr && partner_->model_->Has(0, column);
    SetWidth(column, shared ? qMax(NeededWidth(column), partner_->NeededWidth(column)) : NeededWidth(column));
}

void EntryGrid::AlignWith(EntryGrid& other)
{
    partner_ = &other;
    other.partner_ = this;
    FollowScrollingOf(other);
    other.FollowScrollingOf(*this);
}

// The grid with more columns scrolls further; the other one stays at its end then and does not pull it back.
void EntryGrid::FollowScrollingOf(const EntryGrid& other)
{
    connect(other.horizontalScrollBar(), &QScrollBar::valueChanged, this, [this, &other](int value) {
        if (other.following_) return;
        const QScopedValueRollback<bool> following(following_, true);
        horizontalScrollBar()->setValue(value);
    });
}

// Typing makes a column wider where it must, never narrower.
void EntryGrid::Widen(int column, const QString& text)
{
    const bool fixed = column < model_->FixedColumns();
    const int width = WidthOf(text);
    if (width > (fixed ? verticalHeader()->minimumWidth() : columnWidth(column))) SetWidth(column, width);
}

void EntryGrid::SetWidth(int column, int width)
{
    ApplyWidth(column, width);
    if (partner_ != nullptr && partner_->model_->Has(0, column)) partner_->ApplyWidth(column, width);
}

void EntryGrid::ApplyWidth(int column, int width)
{
    if (column < model_->FixedColumns())
        verticalHeader()->setFixedWidth(width);
    else
        setColumnWidth(column, width);
    updateGeometry();
}

void EntryGrid::ShowRows(int most)
{
    shownRows_ = most;
    updateGeometry();
}

// A header counts before the grid is on screen, too.
int EntryGrid::HeightOfRows(int rows) const
{
    const int heading = horizontalHeader()->isHidden() ? 0 : horizontalHeader()->sizeHint().height();
    return heading + rows * verticalHeader()->defaultSectionSize() + 2 * frameWidth();
}

// As large as its cells; where there is less room, a scroll bar takes none from them.
QSize EntryGrid::sizeHint() const
{
    const int captions = verticalHeader()->isHidden() ? 0 : verticalHeader()->minimumWidth();
    const int rows = model_->Rows() - model_->FixedRows();
    const int width = captions + horizontalHeader()->length() + 2 * frameWidth();
    const int height = HeightOfRows(shownRows_ > 0 ? qMin(rows, shownRows_) : rows);
    const int bottomBar = this->width() < width ? horizontalScrollBar()->sizeHint().height() : 0;
    const int sideBar = this->height() < HeightOfRows(rows) ? verticalScrollBar()->sizeHint().width() : 0;
    return {width + sideBar, height + bottomBar};
}

QSize EntryGrid::minimumSizeHint() const
{
    constexpr int kLeastRows = 2;
    return {QTableView::minimumSizeHint().width(),
            HeightOfRows(qMin(kLeastRows, model_->Rows() - model_->FixedRows()))};
}

// The cells of the headers lie outside of the viewport.
QRect EntryGrid::visualRect(const QModelIndex& index) const
{
    if (!index.isValid() || !model_->IsFixed(index.row(), index.column()))
        return QTableView::visualRect(index);
    const QPoint outside(-verticalHeader()->width(), -horizontalHeader()->height());
    return {index.column() < model_->FixedColumns() ? outside.x() : columnViewportPosition(index.column()),
            index.row() < model_->FixedRows() ? outside.y() : rowViewportPosition(index.row()), 1, 1};
}

// Whether the cells fit decides on the room for the scroll bars, and on what has to be scrolled away.
void EntryGrid::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    scrollToTop();
    horizontalScrollBar()->setValue(0);
    scrollTo(currentIndex());
    updateGeometry();
}

void EntryGrid::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) Measure();
}

// ---- the corner: the toolkit leaves it blank ----

bool EntryGrid::eventFilter(QObject* watched, QEvent* event)
{
    auto* corner = qobject_cast<QAbstractButton*>(watched);
    if (corner == nullptr || event->type() != QEvent::Paint) return QTableView::eventFilter(watched, event);
    PaintCorner(*corner);
    return true;
}

void EntryGrid::PaintCorner(QWidget& corner) const
{
    QStyleOptionHeader option;
    option.initFrom(this);
    option.rect = corner.rect();
    option.position = QStyleOptionHeader::OnlyOneSection;
    option.textAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    option.text = model_->HeadingOf(0);
    QPainter painter(&corner);
    style()->drawControl(QStyle::CE_Header, &option, &painter, &corner);
}

}  // namespace qt
