// What stands beside a report, as values: pictures, steps and sentences. No toolkit; the views draw them, the
// player lists them, screen readers hear them.
//
// Figures in texts have the report's decimals; coordinates are exact. Roles stand instead of colours. An item
// that can be pointed at has a tip with its figures; one that a step can mark has an id, unique in its
// picture.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace picture {

enum class Role {
    Plain,
    Past,
    Chosen,
    Critical,
    Best,
    Limit,
    Infeasible,
    Forecast,
    Second,
    Spare,
    NotTaken,
};
std::string_view WordFor(Role role);  // "plain", ..., "nottaken"

// ---- charts ----

struct Point {
    double X = 0;
    double Y = 0;
};

struct Axis {
    std::string Title = {};
    double From = 0;  // what the reader must see; the view may round outwards to its ticks
    double To = 1;
    // Of the positions 1, 2, ... where the axis has them; From and To are then 0.5 and n + 0.5. A y axis with
    // names runs from the top.
    std::vector<std::string> Names = {};
    bool Counts = false;  // whole numbers only
    int Places = -1;      // decimals of its values in the report; below 0: as many as there are, up to four
};

enum class SeriesKind { Line, Area, Bars, Points, Steps, Interval };

struct Interval {
    double At = 0;               // the position across
    std::optional<double> From;  // nothing: open
    std::optional<double> To;
    std::string FromText = {};  // the ends as they are written where the row has its own scale
    std::string ToText = {};
};

enum class Side { None, Left, Right };  // of a line, on the way from its first point to its last

struct Series {
    SeriesKind Kind = SeriesKind::Line;
    Role As = Role::Plain;
    std::string Name = {};
    // Bars run from 0 (BarsFrom); along x where the y axis has names. An area is closed from its last point
    // to its first.
    std::vector<Point> Points = {};
    std::vector<Interval> Intervals =
        {};                              // of kind Interval: along x where the y axis has names, else along y
    std::vector<std::string> Tips = {};  // one a point or interval, or none
    std::vector<std::string> Texts = {};  // one a bar or a point of a line, written there, or none
    std::string Id = {};
    Side Forbidden = Side::None;  // short strokes on this side
    bool Arrow = false;           // a head at the last point
    bool Thin = false;            // a line that bounds nothing
    bool Strong = false;          // a line as heavy as a chosen one: the answer in another role
    bool Hatched = false;
};

enum class Direction { X, Y };

struct Band {
    Role As = Role::Plain;
    Direction Across = Direction::X;  // the axis whose values From and To are
    std::optional<double> From;
    std::optional<double> To;
    std::string Text = {};
};

struct Rule {
    Direction Across = Direction::X;
    Role As = Role::Plain;
    double Value = 0;
    std::string Text = {};
};

struct Mark {
    Role As = Role::Plain;
    Point At = {};
    std::string Text = {};
    std::string Tip = {};
    std::string Id = {};
    double Shade = 0;      // of a cell, 0 to 1
    bool Diamond = false;  // an event without duration
};

// Drawn only while one of the items it joins has the focus.
struct FocusArrow {
    Point From = {};
    Point To = {};
    std::string FromId = {};
    std::string ToId = {};
};

struct Chart {
    Axis X = {};
    Axis Y = {};
    std::vector<Series> Curves = {};
    std::vector<Band> Bands = {};
    std::vector<Rule> Rules = {};
    std::vector<Mark> Marks = {};
    std::vector<FocusArrow> FocusArrows = {};
    double BarsFrom = 0;
    bool OwnScales = false;  // every named row has its own scale, its end values written
    // Of the mark at which the keys begin: they go from it along the curve, from left to right.
    std::string Start = {};
    bool Cells = false;  // a table: both axes have names, each mark is a cell with its text and shade
};

// ---- diagrams ----

enum class Shape { Box, Square, Circle, Ring, Triangle, Diamond };  // Ring: ring in ring
std::string_view WordFor(Shape shape);                              // "box", ..., "diamond"

struct Node {
    std::string Id = {};
    std::vector<std::string> Lines = {};  // fields of a line are parted by tabs
    Shape Form = Shape::Box;
    Role As = Role::Plain;
    bool Folded = false;
    std::string Tip = {};
    int Rank = 0;       // column from the left (ranks), side 0 or 1 (two sides)
    double Amount = 0;  // height of a block, two sides
    double Used = 0;    // of the amount; the rest is hatched
    std::string Badge = {};
};

struct Arc {
    std::string From = {};
    std::string To = {};
    bool Directed = true;
    Role As = Role::Plain;
    double Weight = 1;
    std::string Text = {};
    std::string Tip = {};
    std::string Id = {};
    bool Head = true;  // whether an arrowhead is drawn
};

// Nodes that belong together, in a frame of their own.
struct Frame {
    std::string Text = {};
    std::vector<std::string> Ids = {};
};

enum class Layout { Ranks, Tree, TwoSides, Ring, Free };

struct Diagram {
    Layout Kind = Layout::Free;
    std::vector<Node> Nodes = {};
    std::vector<Arc> Arcs = {};
    std::vector<Frame> Frames = {};
    std::string Start = {};  // the node to begin at when the picture scrolls
};

// ---- the three tabs ----

struct Picture {
    std::string Title = {};  // also on its button
    std::variant<Chart, Diagram> Body = {};
    std::vector<std::string> Notes = {};  // under the picture; the first one says the main thing to see
    std::string Problem = {};             // what kind of problem it shows: "Shortest Route"; may be missing
};

struct Step {
    std::string Heading = {};
    std::vector<std::string> Figures = {};  // fixed pitch
    std::string Why = {};
    std::vector<std::string> Arithmetic = {};  // open on demand
    std::string Picture = {};                  // title of the picture it belongs to; empty: none
    std::vector<std::string> Marks = {};       // ids of what it marks there
};

enum class SentenceKind { Result, Limit, Change, Caution };

struct Sentence {
    SentenceKind Kind = SentenceKind::Result;
    std::string Text = {};
};

// ---- in words ----

// A line for each thing in the picture, behind its head, as the player writes them.
std::vector<std::string> Listing(const Picture& picture, int number, int count);
std::vector<std::string> Listing(const std::vector<Step>& steps);

// In sentences and lists, complete enough to draw it again; one may stop after any line.
std::vector<std::string> Describe(const Picture& picture);

// The first and the last 500, and between them one that tells how many are left out.
std::vector<Step> Kept(std::vector<Step> steps);

}  // namespace picture
