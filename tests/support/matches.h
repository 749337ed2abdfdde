// Regular expressions over texts.
#pragma once

#include <regex>
#include <string>
#include <vector>

// All that the first group of the pattern matches.
inline std::vector<std::string> Matches(const std::string& text, const std::string& pattern)
{
    const std::regex regex(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator it(text.begin(), text.end(), regex), end; it != end; ++it)
        found.push_back((*it)[1]);
    return found;
}
