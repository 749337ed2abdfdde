#include "inventory/frmQtyDiscounts.h"
#include "basic/entrytext.h"

#include <QGridLayout>

#include "qt/boxtable.h"

using VtInvent::Problem;

namespace {

QLabel* PutText(QGridLayout* table, const std::string& name, std::string_view text, int row, int column)
{
    QLabel* label = qt::MakeLabel(name.c_str(), text);
    table->addWidget(label, row, column);
    return label;
}

}  // namespace

frmQtyDiscounts::frmQtyDiscounts(QWidget* parent)
    : InventoryForm(parent, "frmQtyDiscounts", " Quantity Discounts")
{
    AddAnnualDemand("txtQtyDiscounts(0)");
    AddOrderCost("txtQtyDiscounts(1)");
    AddField("txtQtyDiscounts(2)",
             "Holding Cost as Percent of Unit Cost (0-100):", VtInvent::TakeCarryingPercent,
             Problem.CarryingPercent);
    AddWorkingDays("txtQtyDiscounts(3)");
    AddReorderPoint();
    AddCategories();
    AddButtons();
}

void frmQtyDiscounts::AddCategories()
{
    QGroupBox* frame = qt::AddFrame(Rows(), "frameCategories", "Cost/Quantity Information");
    auto* table = new QGridLayout;
    static_cast<QBoxLayout*>(frame->layout())->addLayout(table);
    PutText(table, "lblCategory", "Category", 0, 0);
    for (int k = 1; k <= VtInvent::kCategoryRows; ++k) {
        const std::string number = std::to_string(k);
        QLabel* label = PutText(table, "lblCategory(" + std::to_string(k - 1) + ")", number, k, 0);
        label->setAlignment(Qt::AlignCenter);
        label->setVisible(k <= Problem.CategoryCount.Value());
    }
    const auto costs = AddColumn(table, 1, "txtUnitCost", "Unit Cost", VtInvent::TakeCategoryUnitCost,
                                 Problem.CategoryUnitCost);
    txtMinQty_ = AddColumn(table, 2, "txtMinQty", "Minimum Quantity", VtInvent::TakeCategoryMinimum,
                           Problem.CategoryMinimum);
    for (QLineEdit* box : costs)
        box->setToolTip(qt::kMoreThanZero);
    for (QLineEdit* box : txtMinQty_)
        box->setToolTip(qt::kZeroOrMore);
    qt::TakeBlocks(this, {costs, txtMinQty_});
}

std::vector<QLineEdit*> frmQtyDiscounts::AddColumn(QGridLayout* table, int column, const char* name,
                                                   const char* heading, TakeCategory take,
                                                   const Array1<Variant>& values)
{
    std::vector<QLineEdit*> boxes;
    PutText(table, "lbl" + std::string(name).substr(3), heading, 0, column);
    for (int k = 1; k <= VtInvent::kCategoryRows; ++k) {
        const std::string number = std::to_string(k);
        const auto check = [take, k](std::string_view text) { return take(k, text); };
        QLineEdit* box = qt::MakeBox((std::string(name) + "(" + std::to_string(k - 1) + ")").c_str(),
                                     std::string(heading) + ", category " + number, check);
        table->addWidget(box, k, column);
        qt::SetTextOf(box, EntryText(values(k)));
        box->setVisible(k <= Problem.CategoryCount.Value());
        Require(box, check);
        boxes.push_back(box);
    }
    return boxes;
}

bool frmQtyDiscounts::Keep()
{
    VtInvent::KeepFirstMinimum(qt::TextOf(txtMinQty_.front()));
    return InventoryForm::Keep();
}
