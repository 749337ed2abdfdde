// Text boxes that stand like the cells of a table take a block from the clipboard.
#pragma once

#include <QLineEdit>
#include <vector>

namespace qt {

// The columns of boxes, each from above. A block is pasted from the box with the focus on, box by box: each
// is left as with Tab, and one that is refused ends it. Hidden boxes are no room. A text without tabs and
// line ends goes into its box as ever.
void TakeBlocks(QWidget* form, std::vector<std::vector<QLineEdit*>> columns);

}  // namespace qt
