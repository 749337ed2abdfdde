// Numbers in a row: a record written one number behind the other and read back in the same order. A Variant
// that holds nothing is a NaN in it.
#pragma once

#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "basic/error.h"
#include "basic/variant.h"

class NumberRow {
public:
    void Write(double number) { numbers_.push_back(number); }
    void Write(const Variant& variant)
    {
        Write(variant.IsEmpty() ? std::numeric_limits<double>::quiet_NaN() : variant.Value());
    }
    [[nodiscard]] std::vector<double> Take() { return std::move(numbers_); }

private:
    std::vector<double> numbers_;
};

class NumberRowReader {
public:
    explicit NumberRowReader(const std::vector<double>& numbers) : numbers_(numbers) {}

    double Read()
    {
        if (at_ >= numbers_.size()) Raise(ErrorNumber::SubscriptOutOfRange);
        return numbers_[at_++];
    }
    Variant ReadVariant()
    {
        const double number = Read();
        return std::isnan(number) ? Variant() : Variant(number);
    }
    template <typename Whole>
    void ReadInto(Whole& whole)
    {
        whole = static_cast<Whole>(Read());
    }

private:
    const std::vector<double>& numbers_;
    std::size_t at_ = 0;
};
