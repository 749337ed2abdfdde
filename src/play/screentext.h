// What a screen shows, as lines of the transcript.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

namespace play {

// The form or dialog and its visible controls, from top to bottom and from left to right.
std::vector<std::string> DescribeScreen(const QWidget* screen);

// The rows of a grid or of a page of text.
std::vector<std::string> LinesOf(const QWidget* page);

// The session record, a line a field, then the menus, a line an item.
std::vector<std::string> DescribeSession();

}  // namespace play
