#include "picture/plane.h"

#include <gmock/gmock.h>

#include <cmath>
#include <random>

using picture::Box;
using picture::HalfPlane;
using picture::Point;

namespace {

double AreaOf(const std::vector<Point>& polygon)
{
    double twice = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point& a = polygon[i];
        const Point& b = polygon[(i + 1) % polygon.size()];
        twice += a.X * b.Y - b.X * a.Y;
    }
    return std::abs(twice) / 2;
}

bool Allowed(const std::vector<HalfPlane>& halves, const Point& p, double slack)
{
    for (const HalfPlane& half : halves)
        if (half.A * p.X + half.B * p.Y > half.C + slack) return false;
    return true;
}

// Corners by enumerating all pairs of lines, the window's edges among them.
std::vector<Point> CornersByPairs(std::vector<HalfPlane> halves, const Box& window)
{
    halves.push_back({-1, 0, -window.X});
    halves.push_back({1, 0, window.Right()});
    halves.push_back({0, -1, -window.Y});
    halves.push_back({0, 1, window.Bottom()});
    std::vector<Point> corners;
    for (std::size_t i = 0; i < halves.size(); ++i)
        for (std::size_t j = i + 1; j < halves.size(); ++j) {
            const HalfPlane& p = halves[i];
            const HalfPlane& q = halves[j];
            const double det = p.A * q.B - q.A * p.B;
            if (std::abs(det) < 1e-12) continue;
            const Point corner{(p.C * q.B - q.C * p.B) / det, (p.A * q.C - q.A * p.C) / det};
            if (Allowed(halves, corner, 1e-9)) corners.push_back(corner);
        }
    return corners;
}

bool Contains(const std::vector<Point>& points, const Point& wanted)
{
    for (const Point& point : points)
        if (std::hypot(point.X - wanted.X, point.Y - wanted.Y) < 1e-6) return true;
    return false;
}

}  // namespace

TEST(Region, OfNoLimitsIsTheWindow)
{
    EXPECT_DOUBLE_EQ(AreaOf(picture::Region({0, 0, 4, 3}, {})), 12);
}

TEST(Region, HasTheCornersThatAllPairsOfLinesGive)
{
    std::mt19937 random(3);
    std::uniform_int_distribution<int> whole(-9, 9);
    const Box window{0, 0, 20, 20};
    int regions = 0;
    for (int i = 0; i < 3000; ++i) {
        std::vector<HalfPlane> halves;
        const int count = 1 + i % 5;
        halves.reserve(static_cast<std::size_t>(count));
        for (int k = 0; k < count; ++k)
            halves.push_back({static_cast<double>(whole(random)), static_cast<double>(whole(random)),
                              static_cast<double>(10 * whole(random))});
        const std::vector<Point> region = picture::Region(window, halves, 1e-12);
        const std::vector<Point> corners = CornersByPairs(halves, window);
        bool nothing = false;  // 0 x + 0 y below 0 forbids everything, and no pair of lines tells
        for (const HalfPlane& half : halves)
            nothing = nothing || (half.A == 0 && half.B == 0 && half.C < 0);
        if (nothing) continue;
        for (const Point& corner : region)
            ASSERT_TRUE(Contains(corners, corner)) << i;
        for (const Point& corner : corners)
            ASSERT_TRUE(Contains(region, corner)) << i;
        regions += !region.empty();
    }
    EXPECT_GT(regions, 1000);
}

TEST(Region, KeepsThePointAtWhichALineTouches)
{
    // x + y <= 0 leaves the corner of the window alone.
    const std::vector<Point> region = picture::Region({0, 0, 4, 4}, {{1, 1, 0}});
    ASSERT_FALSE(region.empty());
    EXPECT_TRUE(Contains(region, {0, 0}));
    EXPECT_DOUBLE_EQ(AreaOf(region), 0);
}

TEST(Region, OfLimitsThatExcludeEachOtherIsEmpty)
{
    EXPECT_TRUE(picture::Region({0, 0, 9, 9}, {{1, 0, 2}, {-1, 0, -3}}).empty());
}

TEST(ClipSegment, KeepsWhatIsInside)
{
    const auto part = picture::ClipSegment({{-2, 1}, {6, 1}}, {0, 0, 4, 4});
    ASSERT_TRUE(part);
    EXPECT_DOUBLE_EQ(part->From.X, 0);
    EXPECT_DOUBLE_EQ(part->To.X, 4);
    EXPECT_FALSE(picture::ClipSegment({{-2, 5}, {6, 5}}, {0, 0, 4, 4}));
    EXPECT_FALSE(picture::ClipSegment({{-1, 3}, {1, 5}}, {0, 0, 4, 3.5}));
}

TEST(DistanceToSegment, IsMeasuredToTheNearestPoint)
{
    EXPECT_DOUBLE_EQ(picture::DistanceToSegment({2, 3}, {0, 0}, {4, 0}), 3);
    EXPECT_DOUBLE_EQ(picture::DistanceToSegment({7, 4}, {0, 0}, {4, 0}), 5);
    EXPECT_DOUBLE_EQ(picture::DistanceToSegment({3, 4}, {0, 0}, {0, 0}), 5);
}
