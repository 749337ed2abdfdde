// What stands beside a report, by its titles and headings.
#pragma once

#include <string>
#include <vector>

#include "picture/picture.h"

inline std::vector<std::string> TitlesOf(const std::vector<picture::Picture>& pictures)
{
    std::vector<std::string> titles;
    titles.reserve(pictures.size());
    for (const picture::Picture& picture : pictures)
        titles.push_back(picture.Title);
    return titles;
}

inline std::vector<std::string> HeadingsOf(const std::vector<picture::Step>& steps)
{
    std::vector<std::string> headings;
    headings.reserve(steps.size());
    for (const picture::Step& step : steps)
        headings.push_back(step.Heading);
    return headings;
}
