// Where the nodes, arcs and texts of a diagram stand. Positions are computed for a room and a font, always
// the same for the same diagram. Lengths are pixels; y grows downwards.
#pragma once

#include <optional>
#include <vector>

#include "picture/picture.h"
#include "picture/plane.h"

namespace picture {

constexpr double kStrip = 14;  // width of a block whose height is an amount

struct PlacedNode {
    Box Place = {};
    std::optional<Box> Text = {};  // beside the node; inside of it where there is none
    double Used = 1;               // share of the block, from its top
};

struct PlacedArc {
    std::vector<Point> Path = {};  // from the edge of one node to the edge of the other
    double Width = 0;              // of a ribbon between blocks; 0: as the role tells
    std::optional<Box> Label = {};
};

struct Placement {
    Extent Size = {};
    std::vector<PlacedNode> Nodes = {};
    std::vector<PlacedArc> Arcs = {};
    std::vector<Box> Frames = {};
    int LeftOut = 0;  // labels without a place
    int TooThin = 0;  // ribbons that would be thinner than a pixel in proportion
};

// The size may be larger than the room.
Placement Place(const Diagram& diagram, const Extent& room, const Measure& measure);

// The smallest room in which the diagram is laid out well.
Extent LeastRoom(const Diagram& diagram, const Measure& measure);

Extent SizeOfNode(const Node& node, const Measure& measure);
Extent SizeOfLines(const std::vector<std::string>& lines, const Measure& measure);

// The round badge at a node's upper right, for a text of this size.
Box BadgeAt(const Box& node, const Extent& text);

// Whether the point lies inside of the node's shape, grown by so much.
bool Covers(Shape shape, const Box& place, const Point& point, double grown = 0);

}  // namespace picture
