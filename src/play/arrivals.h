// The steps of a script: of a file at once, of standard input as its lines arrive.
#pragma once

#include <functional>
#include <istream>
#include <memory>
#include <optional>

#include "play/script.h"

namespace play {

class Arrivals {
public:
    virtual ~Arrivals() = default;
    // The next step that has arrived. Nothing: the script has ended, or its next line is still to come.
    virtual std::optional<Step> Next() = 0;
    [[nodiscard]] virtual bool HasEnded() const = 0;
    // The next step, waited for; nothing at the end.
    virtual std::optional<Step> Wait() = 0;
};

std::unique_ptr<Arrivals> FromFile(std::istream& file);
// `told` is called on another thread for each line, and at the end.
std::unique_ptr<Arrivals> FromStandardInput(std::function<void()> told);

}  // namespace play
