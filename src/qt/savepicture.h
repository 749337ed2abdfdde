// A picture out of the window: on the clipboard, in a file, on paper. All of these are light, 170 mm wide,
// and carry title and notes.
#pragma once

#include <QImage>

#include "picture/picture.h"

class QPagedPaintDevice;

namespace qt {

[[nodiscard]] QImage ImageOf(const picture::Picture& picture);  // at twice the size of the screen's dots

// As the name's ending tells: SVG, PDF, else PNG. Run-time errors of the disk.
void SavePicture(const picture::Picture& picture, const QString& path);

// "SVG File|*.SVG|PDF File|*.PDF|PNG File|*.PNG", as far as this build can write them.
[[nodiscard]] std::string PictureFilter();

// Asks for the printer.
void PrintPicture(const picture::Picture& picture);

}  // namespace qt
