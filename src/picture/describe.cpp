// A picture in sentences and lists. See picture.h.
#include "picture/picture.h"

namespace picture {

std::vector<std::string> Describe(const Picture& picture)
{
    std::vector<std::string> lines{picture.Title};
    lines.insert(lines.end(), picture.Notes.begin(), picture.Notes.end());
    return lines;
}

}  // namespace picture
