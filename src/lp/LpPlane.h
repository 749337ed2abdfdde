// A linear program of two variables as limits in the plane: its corners, the region that the limits leave,
// and which of them exclude each other. The signs of the variables and the upper bounds of 0/1 variables are
// limits too.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "lp/LP_Engine.h"
#include "picture/picture.h"

namespace LP_Engine {

// a x + b y <relation> c
struct PlaneLimit {
    double A = 0;
    double B = 0;
    double C = 0;
    char Relation = '<';
    std::string Name;    // "limit 2", "X1 of at least 0"
    int Constraint = 0;  // 0: a sign or a bound
};

struct Corner {
    picture::Point At;
    std::vector<std::size_t> Limits;  // those that meet here
};

class LpPlane {
public:
    explicit LpPlane(const LpResult& result);

    [[nodiscard]] const std::vector<PlaneLimit>& Limits() const { return limits_; }

    // The corners of the region; in no order.
    [[nodiscard]] const std::vector<Corner>& Corners() const { return corners_; }

    // What a picture must show: the corners and where the lines cut the axes, the best whole-number
    // plan, and 15 % more.
    [[nodiscard]] picture::Point Window() const { return window_; }
    // The region as far as the window shows it, around; empty when there is none. A segment has two points.
    [[nodiscard]] const std::vector<picture::Point>& Region() const { return region_; }
    // Whether the region goes on beyond every window.
    [[nodiscard]] bool IsOpen() const { return open_.has_value(); }
    // A direction in which it goes on, the one that gains the most for the objective (p, q).
    [[nodiscard]] std::optional<picture::Point> OpenDirection(double p, double q) const;

    // One, two or three limits that no plan can fulfil together; empty when there are none.
    [[nodiscard]] std::vector<std::size_t> Excluding() const;

    // Where the line of a limit enters and leaves the window; nothing when it does not cross it.
    [[nodiscard]] std::optional<std::array<picture::Point, 2>> LineOf(double a, double b, double c) const;

    [[nodiscard]] bool Fulfils(const picture::Point& point) const;
    [[nodiscard]] bool Touches(std::size_t limit, const picture::Point& point) const;

private:
    void FindCorners();
    void AddCorner(const picture::Point& at);
    void ChooseWindow(const LpResult& result);
    void ClipRegion();

    std::vector<PlaneLimit> limits_;
    std::vector<Corner> corners_;
    picture::Point window_;
    std::vector<picture::Point> region_;
    std::optional<picture::Point> open_;
};

}  // namespace LP_Engine
