#include <cmath>

#include "basic/format.h"
#include "picture/describing.h"

namespace picture {

namespace describing {

std::string Figure(double value)
{
    constexpr double kPlaces = 1e4;
    constexpr double kLargest = 1e11;  // what is larger has no such places
    const double rounded = std::abs(value) < kLargest ? std::round(value * kPlaces) / kPlaces : value;
    return PlainText(rounded == 0 ? 0 : rounded);
}

std::string_view InWords(Role role)
{
    switch (role) {
        case Role::Plain:
            return "";
        case Role::NotTaken:
            return "not taken";
        default:
            return WordFor(role);
    }
}

bool IsChosen(Role role)
{
    return role == Role::Chosen || role == Role::Critical || role == Role::Best;
}

std::string WithRole(std::string_view text, Role role)
{
    std::string told(text);
    if (!InWords(role).empty()) told += " (" + std::string(InWords(role)) + ")";
    return told;
}

}  // namespace describing

std::vector<std::string> Describe(const Picture& picture)
{
    std::vector<std::string> lines;
    std::visit(
        [&](const auto& body) {
            lines.push_back(std::string(describing::KindOf(body)) + ": " + picture.Title +
                            (picture.Problem.empty() ? "." : ", " + picture.Problem + "."));
            if (!picture.Notes.empty()) lines.push_back(picture.Notes.front());
            describing::Tell(body, lines);
            for (std::size_t i = 1; i < picture.Notes.size(); ++i)
                lines.push_back(picture.Notes[i]);
            describing::TellAll(body, lines);
        },
        picture.Body);
    return lines;
}

}  // namespace picture
