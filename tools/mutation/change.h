// What the changed sources of tools/mutate.sh call. Every place that can change has a number; the environment
// variable VANTREL_CHANGE names the one that is changed in this run, VANTREL_REACHED a file with one byte a
// place in which those that the run comes by are marked.
#pragma once

#include <type_traits>

namespace change {

extern int active;
extern unsigned char* reached;  // one byte a place

// In what the compiler computes, nothing is ever changed.
template <int N>
constexpr bool On()
{
    if (std::is_constant_evaluated()) return false;
    reached[N] = 1;
    return active == N;
}

template <int N>
constexpr bool Kept()
{
    return !On<N>();
}

// A constant, or one more; twice as much where one more is not seen.
template <int N, class T>
constexpr T Number(T value)
{
    if (!On<N>()) return value;
    const T more = static_cast<T>(value + 1);
    return more != value ? more : static_cast<T>(value + value);
}

// Stands before an operator for its left operand, so that the operator can be another.
template <int N, class T>
struct Operand {
    T Value;
};

template <int N, class T>
constexpr Operand<N, T> Left(T value)
{
    return {value};
}

#define CHANGES_TO(one, other)                                \
    template <int N, class A, class B>                        \
    constexpr auto operator one(Operand<N, A> a, B b)         \
    {                                                         \
        return On<N>() ? (a.Value other b) : (a.Value one b); \
    }

CHANGES_TO(<, <=)
CHANGES_TO(<=, <)
CHANGES_TO(>, >=)
CHANGES_TO(>=, >)
CHANGES_TO(==, !=)
CHANGES_TO(!=, ==)
CHANGES_TO(+, -)
CHANGES_TO(-, +)
CHANGES_TO(*, /)
CHANGES_TO(/, *)

#undef CHANGES_TO

}  // namespace change
