// The minimum of a function of one variable that falls and then rises, by the golden section: what the
// closed formulas of the engines are held against.
#pragma once

#include <cmath>
#include <functional>

inline double ArgMin(const std::function<double(double)>& f, double low, double high)
{
    const double golden = (std::sqrt(5.0) - 1) / 2;
    double left = high - golden * (high - low);
    double right = low + golden * (high - low);
    for (int step = 0; step < 200; ++step) {
        if (f(left) < f(right)) {
            high = right;
            right = left;
            left = high - golden * (high - low);
        } else {
            low = left;
            left = right;
            right = low + golden * (high - low);
        }
    }
    return (low + high) / 2;
}

inline double Minimum(const std::function<double(double)>& f, double low, double high)
{
    return f(ArgMin(f, low, high));
}
