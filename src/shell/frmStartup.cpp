#include "shell/frmStartup.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/desktop.h"
#include "shell/commands.h"

namespace {

QLabel* AddNotice(QVBoxLayout* page, const QString& text)
{
    auto* notice = new QLabel(text);
    notice->setAlignment(Qt::AlignCenter);
    page->addWidget(notice);
    return notice;
}

void Enlarge(QLabel* label, double factor)
{
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(true);
    label->setFont(font);
}

void Continue()
{
    desktop::TheForms().Unload("frmStartup");
    Commands::Start();
}

}  // namespace

frmStartup::frmStartup(QWidget* parent) : qt::ModalForm(parent)
{
    constexpr int kIconSize = 96;
    constexpr int kMargin = 32;
    constexpr double kTitleFactor = 2.4;
    setObjectName("frmStartup");
    setWindowTitle("Vantrel");

    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(kMargin, kMargin, kMargin, kMargin / 2);
    auto* picture = new QLabel;
    picture->setPixmap(QApplication::windowIcon().pixmap(kIconSize));
    picture->setAlignment(Qt::AlignCenter);
    page->addWidget(picture);
    QLabel* title = AddNotice(page, "Vantrel");
    title->setObjectName("lblTitle");
    Enlarge(title, kTitleFactor);
    AddNotice(page, "Version 6.0")->setObjectName("lblVersion");
    page->addSpacing(kMargin / 2);
    AddNotice(page, "Solves the standard models of management science and decision making.")
        ->setObjectName("lblPurpose");
    AddNotice(page, "This program comes without any warranty.")->setObjectName("lblWarranty");
    page->addSpacing(kMargin);

    auto* proceed = new QPushButton("Continue...");
    proceed->setObjectName("cmdOK");
    proceed->setDefault(true);
    page->addWidget(proceed, 0, Qt::AlignCenter);
    connect(proceed, &QPushButton::clicked, this, &Continue);
    proceed->setFocus();
}

void frmStartup::ClosedByHand()
{
    QApplication::exit(0);
}
