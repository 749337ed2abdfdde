#include "network/NetworkMeaning.h"

#include <algorithm>
#include <array>
#include <string>

#include "basic/format.h"
#include "network/NetworkFacts.h"
#include "picture/words.h"

namespace Network {
namespace {

using picture::Counted;
using picture::Listed;
using picture::SentenceKind;
using Sentences = std::vector<picture::Sentence>;

constexpr std::size_t kMostPairs = 3;  // of nodes with several arcs, told one by one

std::vector<std::string> Names(const std::vector<int>& numbers)
{
    std::vector<std::string> names;
    names.reserve(numbers.size());
    for (const int number : numbers)
        names.push_back(std::to_string(number));
    return names;
}

std::string NodesText(const std::vector<int>& nodes)
{
    return (nodes.size() == 1 ? "node " : "nodes ") + Listed(Names(nodes));
}

// ---- the cautions ----

std::string LastOneCounts(const NetworkProblem& problem, const Link& link)
{
    constexpr std::array<std::string_view, 4> kCounts{"Two", "Three", "Four", "Five"};
    const std::size_t arcs = link.Replaced.size() + 1;
    const std::string count =
        arcs - 2 < kCounts.size() ? std::string(kCounts.at(arcs - 2)) : std::to_string(arcs);
    return count + " arcs join " + std::to_string(link.A) + " and " + std::to_string(link.B) +
           "; the one entered last, with " + LengthOf(problem, link.Length) + ", is used, although " +
           (arcs == 2 ? "the other" : "another") + " is shorter.";
}

std::string MoreLastOnes(std::size_t count)
{
    return "The same holds for " + Counted(static_cast<int>(count), "more pair") + " of nodes.";
}

std::string JoinsItself(const std::vector<int>& apart)
{
    return "The tree takes an arc that joins node 1 to itself; " + NodesText(apart) +
           (apart.size() == 1 ? " stays outside." : " stay outside.");
}

std::string LostSentence(const std::vector<int>& lost)
{
    return (lost.size() == 1 ? "Arc " : "Arcs ") + Listed(Names(lost)) +
           (lost.size() == 1 ? " has no node at one end and is" : " have no node at one end and are") +
           " left out.";
}

std::string RoundedSentence(int places)
{
    return "Lengths are kept to three decimals and shown with " + std::to_string(places) +
           ": what is shown need not add up.";
}

// A length that the method keeps for nodes that no arc joins.
std::string CountAsNone(const std::vector<int>& endless)
{
    return (endless.size() == 1 ? "Arc " : "Arcs ") + Listed(Names(endless)) +
           (endless.size() == 1 ? " has a length of 100,000 or more and counts as no arc."
                                : " have a length of 100,000 or more and count as no arc.");
}

const std::string kTooFar = " is shorter than 100,000, and longer ones do not count.";
const std::string kEveryNode = "the method gives no route as long as any node is out of reach.";

// ---- conditions ----

bool LastIsLonger(const NetworkProblem& problem, const Link& link)
{
    return std::any_of(link.Replaced.begin(), link.Replaced.end(),
                       [&](int arc) { return problem.ArcTable(kLength, arc) < link.Length; });
}

int ShownPlaces(const NetworkProblem& problem)
{
    return ShownDecimals(problem.DecimalPlaces.Value());
}

// Whether a length has more decimals than are shown.
bool IsRounded(const NetworkProblem& problem, std::int32_t length)
{
    constexpr std::array kUnits{1000, 100, 10};  // thousandths in the last shown digit
    return length % kUnits.at(static_cast<std::size_t>(ShownPlaces(problem))) != 0;
}

std::vector<int> EndlessArcs(const NetworkProblem& problem)
{
    std::vector<int> endless;
    for (int k = 1; k <= problem.NumArcs; ++k)
        if (problem.ArcTable(kLength, k) >= kNoArc) endless.push_back(k);
    return endless;
}

void AddArcCautions(const NetworkProblem& problem, const std::vector<std::int32_t>& shown,
                    Sentences& sentences)
{
    std::size_t told = 0;
    std::size_t more = 0;
    for (const Link& link : LinksOf(problem)) {
        if (!LastIsLonger(problem, link)) continue;
        if (told == kMostPairs) {
            ++more;
            continue;
        }
        ++told;
        sentences.push_back({SentenceKind::Caution, LastOneCounts(problem, link)});
    }
    if (more > 0) sentences.push_back({SentenceKind::Caution, MoreLastOnes(more)});
    if (const auto lost = LostArcs(problem); !lost.empty())
        sentences.push_back({SentenceKind::Caution, LostSentence(lost)});
    if (const auto endless = EndlessArcs(problem); !endless.empty())
        sentences.push_back({SentenceKind::Caution, CountAsNone(endless)});
    if (std::any_of(shown.begin(), shown.end(),
                    [&](std::int32_t length) { return IsRounded(problem, length); }))
        sentences.push_back({SentenceKind::Caution, RoundedSentence(ShownPlaces(problem))});
}

std::vector<int> Apart(const NetworkProblem& problem, int from)
{
    std::vector<int> apart;
    const auto pieces = PiecesOf(problem, from);
    for (std::size_t i = 1; i < pieces.size(); ++i)
        apart.insert(apart.end(), pieces[i].begin(), pieces[i].end());
    std::sort(apart.begin(), apart.end());
    return apart;
}

// ---- the route ----

std::string RouteSentence(const NetworkProblem& problem, const NetworkResult& result,
                          const std::vector<int>& route)
{
    if (problem.StartNode == problem.EndNode)
        return "Start and end are the same node, " + std::to_string(problem.StartNode) + ": the length is " +
               LengthOf(problem, 0) + ".";
    std::string nodes;
    for (const int node : route)
        nodes += (nodes.empty() ? "" : ", ") + std::to_string(node);
    return "The shortest route from " + std::to_string(problem.StartNode) + " to " +
           std::to_string(problem.EndNode) + " is " + nodes + " with a length of " +
           LengthOf(problem, result.NodeLabel(kDistance, problem.EndNode)) + ".";
}

std::vector<int> TooFar(const NetworkProblem& problem, const NetworkResult& result)
{
    std::vector<int> nodes;
    for (int n = 1; n <= problem.NumNodes; ++n)
        if (n != problem.StartNode && result.NodeLabel(kDistance, n) >= kNoArc) nodes.push_back(n);
    return nodes;
}

void AddNoRoute(const NetworkProblem& problem, const NetworkResult& result, Sentences& sentences)
{
    const std::string start = "node " + std::to_string(problem.StartNode);
    const auto apart = Apart(problem, problem.StartNode);
    sentences.push_back(
        {SentenceKind::Result,
         "No route is given: " +
             (apart.empty() ? "no way from " + start + " to " + NodesText(TooFar(problem, result)) + kTooFar
                            : NodesText(apart) + " cannot be reached from " + start + ".")});
    const std::int32_t distance = result.NodeLabel(kDistance, problem.EndNode);
    if (distance >= kNoArc || problem.StartNode == problem.EndNode) return;
    sentences.push_back({SentenceKind::Caution, "Node " + std::to_string(problem.EndNode) +
                                                    " could be reached, with a length of " +
                                                    LengthOf(problem, distance) + "; " + kEveryNode});
}

// ---- the tree ----

// Whether an arc outside of the tree joins the two parts into which the tree falls without one of its arcs.
bool HasOtherWay(const NetworkProblem& problem, const std::vector<TreeArc>& joined, const TreeArc& without)
{
    std::vector<bool> here(static_cast<std::size_t>(problem.NumNodes) + 1);
    here[static_cast<std::size_t>(without.Start)] = true;
    const auto isHere = [&here](int node) { return here[static_cast<std::size_t>(node)]; };
    for (std::size_t round = 0; round < joined.size(); ++round)
        for (const TreeArc& arc : joined) {
            if (&arc == &without || isHere(arc.Start) == isHere(arc.End)) continue;
            here[static_cast<std::size_t>(arc.Start)] = true;
            here[static_cast<std::size_t>(arc.End)] = true;
        }
    const auto links = LinksOf(problem);
    return std::count_if(links.begin(), links.end(),
                         [&](const Link& link) { return isHere(link.A) != isHere(link.B); }) > 1;
}

void AddTree(const NetworkProblem& problem, const NetworkResult& result, const std::vector<TreeArc>& joined,
             Sentences& sentences)
{
    if (problem.NumNodes == 1) {
        sentences.push_back(
            {SentenceKind::Result, "One node needs no arc; the length is " + LengthOf(problem, 0) + "."});
        return;
    }
    const int arcs = problem.NumNodes - 1;
    sentences.push_back({SentenceKind::Result, Counted(arcs, "arc") + " with a length of " +
                                                   LengthOf(problem, result.TreeLength) + " in all " +
                                                   (arcs == 1 ? "joins" : "join") + " the " +
                                                   Counted(problem.NumNodes, "node") + "."});
    if (joined.size() < 2) return;
    const auto longest = std::max_element(
        joined.begin(), joined.end(), [](const TreeArc& a, const TreeArc& b) { return a.Length < b.Length; });
    sentences.push_back(
        {SentenceKind::Limit, "The longest arc of the tree, " + PairName(longest->Start, longest->End) +
                                  ", has " + LengthOf(problem, longest->Length) +
                                  (HasOtherWay(problem, joined, *longest)
                                       ? "; every other way to join these parts is at least as long."
                                       : "; no other arc joins these parts.")});
}

void AddSubstitutes(const NetworkProblem& problem, const NetworkResult& result, Sentences& sentences)
{
    const auto others = SubstitutesOf(problem, result);
    if (others.empty()) return;
    const Substitute& first = others.front();
    std::string text = "Arc " + PairName(first.Other.A, first.Other.B) + " is as long as arc " +
                       PairName(first.Tree.A, first.Tree.B) + " and would serve as well";
    if (others.size() > 1)
        text += "; there " + std::string(others.size() == 2 ? "is " : "are ") +
                Counted(static_cast<int>(others.size()) - 1, "more arc") + " of this kind";
    sentences.push_back({SentenceKind::Change, text + "."});
}

}  // namespace

Sentences RouteMeaning(const NetworkProblem& problem, const NetworkResult& result)
{
    if (!HasNetwork(problem, result)) return {};
    Sentences sentences;
    std::vector<std::int32_t> shown;
    if (result.Reached) {
        const std::vector<int> route = RouteNodes(problem, result);
        sentences.push_back({SentenceKind::Result, RouteSentence(problem, result, route)});
        if (const auto other = OtherRoute(problem, result))
            sentences.push_back({SentenceKind::Change, "Another route is as short: it reaches " +
                                                           std::to_string(other->Node) + " from " +
                                                           std::to_string(other->From) + "."});
        for (std::size_t i = 1; i < route.size(); ++i)
            shown.push_back(result.NodeDistance(route[i - 1], route[i]));
    } else {
        AddNoRoute(problem, result, sentences);
    }
    AddArcCautions(problem, shown, sentences);
    return sentences;
}

Sentences TreeMeaning(const NetworkProblem& problem, const NetworkResult& result)
{
    if (!HasNetwork(problem, result)) return {};
    const std::vector<TreeArc> joined = JoinedArcs(problem, result);
    Sentences sentences;
    std::vector<std::int32_t> shown;
    const auto apart = Apart(problem, 1);
    const auto outside = NotJoined(problem, joined);
    if (!apart.empty()) {
        sentences.push_back({SentenceKind::Result,
                             "No tree is given: " + NodesText(apart) + " cannot be reached from node 1."});
    } else if (!outside.empty() && !result.Reached) {
        sentences.push_back(
            {SentenceKind::Result, "No tree is given: no arc to " + NodesText(outside) + kTooFar});
    } else if (!outside.empty()) {
        sentences.push_back({SentenceKind::Caution, JoinsItself(outside)});
    } else {
        AddTree(problem, result, joined, sentences);
        AddSubstitutes(problem, result, sentences);
        for (const TreeArc& arc : joined)
            shown.push_back(arc.Length);
    }
    AddArcCautions(problem, shown, sentences);
    return sentences;
}

}  // namespace Network
