// The transcript of a session: each step behind "> ", what the program did below it.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

namespace play {

// In double quotes, `""` for a quote and `\n` for a line end inside.
std::string Quote(std::string_view text);

class Transcript {
public:
    explicit Transcript(std::ostream& out) : out_(out) {}

    void Echo(std::string_view step);
    void Line(std::string_view text);
    void Flush();

private:
    std::ostream& out_;
};

}  // namespace play
