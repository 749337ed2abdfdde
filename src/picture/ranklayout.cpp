// Ranks from left to right: the order in each column follows the neighbours' middles, a line over several
// columns keeps a place of its own in each of them.
#include <algorithm>
#include <map>

#include "picture/layouts.h"

namespace picture::layouts {
namespace {

constexpr double kColumnGap = 44;
constexpr double kRowGap = 14;
constexpr double kLineHeight = 10;  // the place of a line that passes a column
constexpr int kSweeps = 12;

// A node, or the place of a line in a column.
struct Place {
    std::size_t Node = kNobody;
    double Height = kLineHeight;
    double Middle = 0;
    double Wish = 0;
    std::vector<std::size_t> Before = {};  // neighbours in the columns to the left and to the right
    std::vector<std::size_t> Behind = {};
};

class RankPlacer {
public:
    explicit RankPlacer(const Sized& sized) : sized_(sized)
    {
        placement_.Nodes.resize(sized.Count());
        placement_.Arcs.resize(sized.From.size());
    }

    Placement Make(const Extent& room)
    {
        MakeColumns();
        MakeLines();
        OrderColumns();
        for (int i = 0; i < kSweeps; ++i)
            Settle(i % 2 == 0);
        PlaceNodes(room);
        DrawLines();
        PlaceLabels(sized_, placement_);
        return std::move(placement_);
    }

private:
    void MakeColumns()
    {
        std::map<int, std::size_t> ranks;
        for (const Node& node : sized_.Of.Nodes)
            ranks.emplace(node.Rank, 0);
        std::size_t next = 0;
        for (auto& [rank, column] : ranks)
            column = next++;
        columns_.resize(ranks.size());
        for (std::size_t i = 0; i < sized_.Count(); ++i) {
            column_.push_back(ranks.at(sized_.Of.Nodes[i].Rank));
            columns_[column_[i]].push_back(places_.size());
            places_.push_back({.Node = i, .Height = sized_.Nodes[i].Height});
        }
    }

    void MakeLines()
    {
        ways_.resize(sized_.From.size());
        for (std::size_t arc = 0; arc < sized_.From.size(); ++arc) {
            if (!sized_.HasEnds(arc)) continue;
            std::size_t from = sized_.From[arc];
            std::size_t to = sized_.To[arc];
            if (column_[from] > column_[to]) std::swap(from, to);
            std::size_t last = from;
            for (std::size_t column = column_[from] + 1; column < column_[to]; ++column) {
                columns_[column].push_back(places_.size());
                ways_[arc].push_back(places_.size());
                places_.push_back({});
                Join(last, places_.size() - 1);
                last = places_.size() - 1;
            }
            if (column_[from] < column_[to]) Join(last, to);
            if (column_[sized_.From[arc]] > column_[sized_.To[arc]])
                std::reverse(ways_[arc].begin(), ways_[arc].end());
        }
    }

    void Join(std::size_t left, std::size_t right)
    {
        places_[left].Behind.push_back(right);
        places_[right].Before.push_back(left);
    }

    void OrderColumns()
    {
        for (auto& column : columns_)
            Stack(column);
        for (int i = 0; i < kSweeps; ++i) {
            const bool rightwards = i % 2 == 0;
            for (std::size_t k = 0; k < columns_.size(); ++k) {
                auto& column = columns_[rightwards ? k : columns_.size() - 1 - k];
                for (const std::size_t place : column)
                    places_[place].Wish = MiddleOf(rightwards ? places_[place].Before : places_[place].Behind,
                                                   places_[place].Middle);
                std::stable_sort(column.begin(), column.end(), [this](std::size_t a, std::size_t b) {
                    return places_[a].Wish < places_[b].Wish;
                });
                Stack(column);
            }
        }
    }

    [[nodiscard]] double MiddleOf(const std::vector<std::size_t>& neighbours, double otherwise) const
    {
        if (neighbours.empty()) return otherwise;
        double sum = 0;
        for (const std::size_t neighbour : neighbours)
            sum += places_[neighbour].Middle;
        return sum / static_cast<double>(neighbours.size());
    }

    // One under the other, about the middle 0.
    void Stack(const std::vector<std::size_t>& column)
    {
        double height = -kRowGap;
        for (const std::size_t place : column)
            height += places_[place].Height + kRowGap;
        double top = -height / 2;
        for (const std::size_t place : column) {
            places_[place].Middle = top + places_[place].Height / 2;
            top += places_[place].Height + kRowGap;
        }
    }

    // Moves each towards its neighbours as far as the order lets it: the average of pushing down from the top
    // and pushing up from the bottom.
    void Settle(bool rightwards)
    {
        for (std::size_t k = 0; k < columns_.size(); ++k) {
            const auto& column = columns_[rightwards ? k : columns_.size() - 1 - k];
            std::vector<double> down;
            std::vector<double> up(column.size());
            for (std::size_t i = 0; i < column.size(); ++i) {
                Place& place = places_[column[i]];
                std::vector<std::size_t> all = place.Before;
                all.insert(all.end(), place.Behind.begin(), place.Behind.end());
                place.Wish = MiddleOf(all, place.Middle);
                const double least = i == 0 ? place.Wish : down.back() + Apart(column[i - 1], column[i]);
                down.push_back(std::max(place.Wish, least));
            }
            for (std::size_t i = column.size(); i-- > 0;) {
                const double wish = places_[column[i]].Wish;
                up[i] = i + 1 == column.size() ? wish
                                               : std::min(wish, up[i + 1] - Apart(column[i], column[i + 1]));
            }
            for (std::size_t i = 0; i < column.size(); ++i)
                places_[column[i]].Middle = (down[i] + up[i]) / 2;
        }
    }

    [[nodiscard]] double Apart(std::size_t above, std::size_t below) const
    {
        return (places_[above].Height + places_[below].Height) / 2 + kRowGap;
    }

    void PlaceNodes(const Extent& room)
    {
        double top = 0;
        double bottom = 0;
        for (const Place& place : places_) {
            top = std::min(top, place.Middle - place.Height / 2);
            bottom = std::max(bottom, place.Middle + place.Height / 2);
        }
        const double height = std::max(bottom - top + 2 * kMargin, room.Height);
        const double shift = (height - (bottom - top)) / 2 - top;
        for (Place& place : places_)
            place.Middle += shift;
        double left = kMargin;
        for (std::size_t k = 0; k < columns_.size(); ++k) {
            double wide = 0;
            for (const std::size_t place : columns_[k])
                if (places_[place].Node != kNobody)
                    wide = std::max(wide, sized_.Nodes[places_[place].Node].Width);
            lefts_.push_back(left);
            rights_.push_back(left + wide);
            for (const std::size_t place : columns_[k])
                if (places_[place].Node != kNobody)
                    placement_.Nodes[places_[place].Node].Place =
                        Around({left + wide / 2, places_[place].Middle}, sized_.Nodes[places_[place].Node]);
            left += wide + kColumnGap + WidestLabel(k);
        }
        placement_.Size = {rights_.empty() ? 0 : std::max(rights_.back() + kMargin, room.Width), height};
    }

    [[nodiscard]] double WidestLabel(std::size_t column) const
    {
        double widest = 0;
        for (std::size_t arc = 0; arc < sized_.From.size(); ++arc)
            if (sized_.HasEnds(arc) && column_[sized_.From[arc]] == column)
                widest = std::max(widest, sized_.Labels[arc].Width);
        return widest;
    }

    void DrawLines()
    {
        for (std::size_t arc = 0; arc < sized_.From.size(); ++arc) {
            if (!sized_.HasEnds(arc)) continue;
            const std::size_t from = sized_.From[arc];
            const std::size_t to = sized_.To[arc];
            const Box& a = placement_.Nodes[from].Place;
            const Box& b = placement_.Nodes[to].Place;
            std::vector<Point>& path = placement_.Arcs[arc].Path;
            if (column_[from] == column_[to]) {
                path = Trimmed(Curve(a.Middle(), b.Middle(), from == to ? 0 : 30), sized_, placement_, arc);
                continue;
            }
            const bool rightwards = column_[from] < column_[to];
            path.push_back({rightwards ? a.Right() : a.X, a.Middle().Y});
            for (const std::size_t place : ways_[arc]) {
                const std::size_t column = ColumnOf(place);
                const double y = places_[place].Middle;
                path.push_back({rightwards ? lefts_[column] : rights_[column], y});
                path.push_back({rightwards ? rights_[column] : lefts_[column], y});
            }
            path.push_back({rightwards ? b.X : b.Right(), b.Middle().Y});
        }
    }

    [[nodiscard]] std::size_t ColumnOf(std::size_t place) const
    {
        for (std::size_t k = 0; k < columns_.size(); ++k)
            if (std::find(columns_[k].begin(), columns_[k].end(), place) != columns_[k].end()) return k;
        return 0;
    }

    const Sized& sized_;
    Placement placement_;
    std::vector<std::size_t> column_;  // of each node
    std::vector<std::vector<std::size_t>> columns_;
    std::vector<Place> places_;  // the nodes first
    std::vector<std::vector<std::size_t>> ways_;
    std::vector<double> lefts_;
    std::vector<double> rights_;
};

}  // namespace

Placement Ranks(const Sized& sized, const Extent& room)
{
    return RankPlacer(sized).Make(room);
}

}  // namespace picture::layouts
