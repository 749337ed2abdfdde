// What the fuzzers share: the bytes of an input as a text, and a claim that must hold.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

inline std::string TextOf(const std::uint8_t* data, std::size_t size)
{
    std::string text(size, '\0');
    if (size > 0) std::memcpy(text.data(), data, size);
    return text;
}

// Ends the fuzzer, which keeps the input.
inline void Claim(bool holds)
{
    if (!holds) std::abort();
}
