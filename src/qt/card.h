// The page of a module without a problem: a card in the middle, with the module's icon and what the module
// does.
#pragma once

#include <QBoxLayout>
#include <QIcon>

namespace qt {

// Adds the card to the page, filling it; what is put into the layout that is answered stands on the card,
// which goes away with it.
QBoxLayout* AddCard(QBoxLayout* page, const QIcon& icon);

}  // namespace qt
