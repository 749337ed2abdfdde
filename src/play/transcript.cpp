#include "play/transcript.h"

namespace play {

std::string Quote(std::string_view text)
{
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"')
            quoted += "\"\"";
        else if (c == '\n')
            quoted += "\\n";
        else
            quoted += c;
    }
    return quoted + '"';
}

void Transcript::Echo(std::string_view step)
{
    Line("> " + std::string(step));
}

void Transcript::Line(std::string_view text)
{
    out_ << text << '\n';
}

void Transcript::Flush()
{
    out_.flush();
}

}  // namespace play
