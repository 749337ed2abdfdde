// Arrays with bounds that are checked: an index outside raises "Subscript out of range".
//
// Array1<T>(upper) has the elements 0 to upper, Array2<T>(rows, columns) the elements (0, 0) to (rows,
// columns), all T{} at first. Most tables use them from 1; element 0 is there for the few that do not. A
// default-made array has no element at all.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "basic/error.h"

// How many elements 0 to upper are; a negative upper bound raises "Subscript out of range".
inline std::size_t CheckedSize(int upper)
{
    if (upper < 0) Raise(ErrorNumber::SubscriptOutOfRange);
    return static_cast<std::size_t>(upper) + 1;
}

template <typename T>
class Array1 {
public:
    Array1() = default;
    explicit Array1(int upper) : elements_(CheckedSize(upper)) {}

    [[nodiscard]] int Upper() const { return static_cast<int>(elements_.size()) - 1; }
    void Fill(const T& value) { std::fill(elements_.begin(), elements_.end(), value); }

    T& operator()(int i) { return elements_[Index(i)]; }
    const T& operator()(int i) const { return elements_[Index(i)]; }

    // Unchecked, for the inner loops of the engines: element 0 is first.
    T* Data() { return elements_.data(); }
    [[nodiscard]] const T* Data() const { return elements_.data(); }

private:
    [[nodiscard]] std::size_t Index(int i) const
    {
        const auto index = static_cast<std::size_t>(i);  // a negative index becomes a huge one
        if (index >= elements_.size()) Raise(ErrorNumber::SubscriptOutOfRange);
        return index;
    }

    std::vector<T> elements_;
};

template <typename T>
class Array2 {
public:
    Array2() = default;
    Array2(int rows, int columns) : stride_(CheckedSize(columns)), elements_(CheckedSize(rows) * stride_) {}

    [[nodiscard]] int UpperRow() const
    {
        return stride_ == 0 ? -1 : static_cast<int>(elements_.size() / stride_) - 1;
    }
    [[nodiscard]] int UpperColumn() const { return static_cast<int>(stride_) - 1; }
    void Fill(const T& value) { std::fill(elements_.begin(), elements_.end(), value); }

    T& operator()(int row, int column) { return elements_[Index(row, column)]; }
    const T& operator()(int row, int column) const { return elements_[Index(row, column)]; }

    // Unchecked, for the inner loops of the engines: the row's element 0 is first, the next row Stride()
    // further.
    T* Row(int row) { return elements_.data() + static_cast<std::size_t>(row) * stride_; }
    [[nodiscard]] const T* Row(int row) const
    {
        return elements_.data() + static_cast<std::size_t>(row) * stride_;
    }
    [[nodiscard]] std::size_t Stride() const { return stride_; }

private:
    [[nodiscard]] std::size_t Index(int row, int column) const
    {
        const auto r = static_cast<std::size_t>(row);
        const auto c = static_cast<std::size_t>(column);
        const std::size_t index = r * stride_ + c;  // of a negative row a huge one, too
        if (c >= stride_ || index >= elements_.size()) Raise(ErrorNumber::SubscriptOutOfRange);
        return index;
    }

    std::size_t stride_ = 0;
    std::vector<T> elements_;
};
