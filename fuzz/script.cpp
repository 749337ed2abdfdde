// Session scripts: every line is a step or a fault, and every word can be read as what a step may ask of it.
#include <sstream>

#include "input.h"
#include "play/script.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::istringstream script(TextOf(data, size));
    int line = 0;
    play::StepReader reader(script);
    while (const auto step = reader.Next()) {
        Claim(step->Line > line);
        line = step->Line;
        Claim(!step->Words.empty() || !step->Fault.empty());
        for (const play::Word& word : step->Words) {
            play::ReadKeyStroke(word.Text);
            const auto count = play::ReadCount(word.Text);
            Claim(!count || *count >= 0);
            std::string together;
            for (const std::string& character : play::Characters(word.Text))
                together += character;
            Claim(together == word.Text);
        }
    }
    return 0;
}
