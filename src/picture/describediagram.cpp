#include <algorithm>
#include <map>

#include "basic/format.h"
#include "basic/number.h"
#include "picture/describing.h"
#include "picture/words.h"

namespace picture::describing {
namespace {

std::string TextOf(const Node& node)
{
    std::string text;
    for (const std::string& line : node.Lines)
        text += (text.empty() ? "" : ", ") + line;
    std::replace(text.begin(), text.end(), '\t', ' ');
    return text.empty() ? node.Id : text;
}

class Graph {
public:
    explicit Graph(const Diagram& diagram) : diagram_(diagram)
    {
        for (const Node& node : diagram.Nodes)
            nodes_.emplace(node.Id, &node);
        for (const Arc& arc : diagram.Arcs) {
            from_[arc.From].push_back(&arc);
            into_.emplace(arc.To, &arc);
        }
    }

    [[nodiscard]] std::string NameOf(const std::string& id) const
    {
        const auto found = nodes_.find(id);
        if (found == nodes_.end()) return id;
        const Node& node = *found->second;
        return node.Lines.empty() ? id : node.Lines.front();
    }

    [[nodiscard]] bool IsLeaf(const std::string& id) const { return !from_.contains(id); }

    [[nodiscard]] const Arc* Into(const std::string& id) const
    {
        const auto found = into_.find(id);
        return found == into_.end() ? nullptr : found->second;
    }

    [[nodiscard]] int Depth(const std::string& id) const
    {
        int depth = 0;
        std::string at = id;
        while (const Arc* arc = Into(at)) {
            at = arc->From;
            if (++depth > static_cast<int>(diagram_.Nodes.size())) break;
        }
        return depth;
    }

private:
    const Diagram& diagram_;
    std::map<std::string, const Node*> nodes_;
    std::map<std::string, std::vector<const Arc*>> from_;
    std::map<std::string, const Arc*> into_;
};

std::string Labelled(const Arc& arc)
{
    return arc.Text.empty() ? "" : " by " + arc.Text;
}

void TellCounts(const Diagram& diagram, Lines& lines)
{
    const auto directed = static_cast<int>(
        std::count_if(diagram.Arcs.begin(), diagram.Arcs.end(), [](const Arc& a) { return a.Directed; }));
    const int others = static_cast<int>(diagram.Arcs.size()) - directed;
    std::string sentence = "It has " + Counted(static_cast<int>(diagram.Nodes.size()), "node");
    if (directed > 0)
        sentence += (others > 0 ? ", " : " and ") + Counted(directed, "arc") + " with a direction";
    if (others > 0 || directed == 0) sentence += " and " + Counted(others, "edge") + " without direction";
    lines.push_back(sentence + ".");
}

void TellTree(const Diagram& diagram, Lines& lines)
{
    const Graph graph(diagram);
    int leaves = 0;
    int depth = 0;
    for (const Node& node : diagram.Nodes) {
        leaves += graph.IsLeaf(node.Id);
        depth = std::max(depth, graph.Depth(node.Id));
    }
    lines.push_back("The tree has " + Counted(static_cast<int>(diagram.Nodes.size()), "node") + " and " +
                    Counted(leaves, "leaf", "leaves") + "; it is " + Counted(depth, "branch", "branches") +
                    " deep.");
    for (const Arc& arc : diagram.Arcs)
        if (IsChosen(arc.As))
            lines.push_back("Chosen: from " + graph.NameOf(arc.From) + Labelled(arc) + " to " +
                            graph.NameOf(arc.To) + ".");
}

// Those of a way from its beginning on, those of a tree in the order in which its nodes joined.
std::vector<const Arc*> ChosenInOrder(const Diagram& diagram)
{
    std::map<std::string, int> numbers;  // of joining
    for (const Node& node : diagram.Nodes)
        if (!node.Badge.empty()) numbers[node.Id] = static_cast<int>(Val(node.Badge));
    std::vector<const Arc*> rest;
    for (const Arc& arc : diagram.Arcs)
        if (IsChosen(arc.As)) rest.push_back(&arc);
    const auto joins = [&numbers](const Arc* arc) {
        return std::max(numbers.contains(arc->From) ? numbers.at(arc->From) : 0,
                        numbers.contains(arc->To) ? numbers.at(arc->To) : 0);
    };
    std::stable_sort(rest.begin(), rest.end(),
                     [&](const Arc* a, const Arc* b) { return joins(a) < joins(b); });
    std::vector<const Arc*> order;
    while (!rest.empty()) {
        // The first that no other one leads to; in a ring the first.
        auto next = std::find_if(rest.begin(), rest.end(), [&rest](const Arc* arc) {
            return std::none_of(rest.begin(), rest.end(), [arc](const Arc* before) {
                return before->Directed && arc->Directed && before->To == arc->From;
            });
        });
        if (next == rest.end()) next = rest.begin();
        order.push_back(*next);
        rest.erase(next);
    }
    return order;
}

// With as many decimals as the text of the last length.
std::string SumText(double sum, const std::string& like)
{
    const std::size_t point = like.find('.');
    if (point == std::string::npos) return Figure(sum);
    return Format(sum, "0." + std::string(like.size() - point - 1, '0'));
}

// Chosen arcs in their order with the running sum of their lengths.
void TellNetwork(const Diagram& diagram, Lines& lines)
{
    TellCounts(diagram, lines);
    const Graph graph(diagram);
    double sum = 0;
    for (const Arc* arc : ChosenInOrder(diagram)) {
        sum += arc->Weight;
        lines.push_back(
            "Chosen: " + graph.NameOf(arc->From) + (arc->Directed ? " to " : " and ") +
            graph.NameOf(arc->To) +
            (arc->Text.empty() ? "" : ", " + arc->Text + "; " + SumText(sum, arc->Text) + " so far") + ".");
    }
}

void TellSides(const Diagram& diagram, Lines& lines)
{
    const Graph graph(diagram);
    for (const int side : {0, 1}) {
        double total = 0;
        double used = 0;
        int count = 0;
        for (const Node& node : diagram.Nodes)
            if ((node.Rank > 0) == (side == 1)) {
                ++count;
                total += node.Amount;
                used += node.Used;
            }
        std::string sentence = (side == 0 ? "On the first side " : "On the second side ") +
                               std::string(OneOrMany(count, "stands ", "stand ")) + Counted(count, "block");
        if (total > 0) sentence += ", " + Figure(total) + " in all, of which " + Figure(used) + " used";
        lines.push_back(sentence + ".");
    }
    for (const Arc& arc : diagram.Arcs)
        lines.push_back(WithRole(arc.Tip.empty() ? graph.NameOf(arc.From) + " with " + graph.NameOf(arc.To) +
                                                       (arc.Text.empty() ? "" : ": " + arc.Text)
                                                 : arc.Tip,
                                 arc.As) +
                        ".");
    for (const Node& node : diagram.Nodes)
        if (node.Amount > node.Used)
            lines.push_back("Left over at " + graph.NameOf(node.Id) + ": " + Figure(node.Amount - node.Used) +
                            ".");
}

void TellStates(const Diagram& diagram, Lines& lines)
{
    TellCounts(diagram, lines);
    std::vector<std::string> absorbing;
    for (const Node& node : diagram.Nodes)
        if (node.Form == Shape::Ring) absorbing.push_back(TextOf(node));
    if (!absorbing.empty()) lines.push_back("Absorbing: " + Listed(absorbing) + ".");
}

std::string NeighboursOf(const Diagram& diagram, const Graph& graph, const Node& node)
{
    std::vector<const Arc*> out;
    std::vector<std::string> others;
    for (const Arc& arc : diagram.Arcs)
        if (arc.From == node.Id || (arc.To == node.Id && !arc.Directed)) out.push_back(&arc);
    if (diagram.Kind == Layout::Ring)
        std::stable_sort(out.begin(), out.end(),
                         [](const Arc* a, const Arc* b) { return a->Weight > b->Weight; });
    for (const Arc* arc : out) {
        const std::string& other = arc->From == node.Id ? arc->To : arc->From;
        others.push_back(
            WithRole(graph.NameOf(other) + (arc->Text.empty() ? "" : ", " + arc->Text), arc->As));
    }
    std::string text;
    for (const std::string& other : others)
        text += (text.empty() ? "" : "; ") + other;
    if (text.empty()) return diagram.Kind == Layout::Tree ? "a leaf" : "no way out";
    return (diagram.Kind == Layout::Tree ? "branches to " : "to ") + text;
}

// "below outcome 1: 0.450, ": the branch that leads to the parent of a folded node.
std::string BelowOf(const Diagram& diagram, const Node& node)
{
    const Graph graph(diagram);
    const Arc* own = graph.Into(node.Id);
    const Arc* above = own == nullptr ? nullptr : graph.Into(own->From);
    return above == nullptr || above->Text.empty() ? "" : "below " + above->Text + ", ";
}

}  // namespace

std::string_view KindOf(const Diagram& diagram)
{
    switch (diagram.Kind) {
        case Layout::Tree:
            return "Tree";
        case Layout::TwoSides:
            return "Two sides with lines between them";
        case Layout::Ring:
            return "Ring of states";
        case Layout::Ranks:
            return "Network in columns";
        case Layout::Free:
            break;
    }
    return "Network";
}

void Tell(const Diagram& diagram, Lines& lines)
{
    if (diagram.Kind == Layout::Tree)
        TellTree(diagram, lines);
    else if (diagram.Kind == Layout::TwoSides)
        TellSides(diagram, lines);
    else if (diagram.Kind == Layout::Ring)
        TellStates(diagram, lines);
    else
        TellNetwork(diagram, lines);
    for (const Frame& frame : diagram.Frames)
        lines.push_back("In a frame of their own" + (frame.Text.empty() ? "" : ", " + frame.Text) + ": " +
                        Listed(frame.Ids) + ".");
    for (const Node& node : diagram.Nodes)
        if (node.Folded)
            lines.push_back("Folded: " + BelowOf(diagram, node) +
                            (node.Tip.empty() ? TextOf(node) : node.Tip) + ".");
}

void TellAll(const Diagram& diagram, Lines& lines)
{
    const Graph graph(diagram);
    for (const Node& node : diagram.Nodes) {
        std::string line = WithRole(TextOf(node), node.As);
        if (!node.Badge.empty()) line += " [" + node.Badge + "]";
        if (diagram.Kind == Layout::Tree)
            if (const Arc* arc = graph.Into(node.Id))
                line += ", below " + graph.NameOf(arc->From) + Labelled(*arc);
        lines.push_back(line + ": " + NeighboursOf(diagram, graph, node) + ".");
    }
}

}  // namespace picture::describing
