// Pictures for screen readers: the canvas with its description, each item of the picture as a child.
#pragma once

namespace qt {

void TellScreenReadersOfPictures();  // once; further calls do nothing

}  // namespace qt
