// What can be read from a network and its solution, for the pictures, steps and sentences beside a report.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "network/NetworkSolver.h"
#include "network/vtshrtrt.h"

namespace Network {

// Two nodes that an arc joins, the lower number first; of several arcs the last one entered.
struct Link {
    int A = 0;
    int B = 0;
    std::int32_t Length = 0;         // thousandths
    int Number = 0;                  // of the arc
    std::vector<int> Replaced = {};  // arcs between the same nodes that were entered before
};

// By A, then by B; without arcs that join a node to itself or have an empty end.
std::vector<Link> LinksOf(const NetworkProblem& problem);

std::vector<int> LoopsOf(const NetworkProblem& problem);   // arcs that join a node to itself
std::vector<int> LostArcs(const NetworkProblem& problem);  // with an empty end

// A length in the decimals of the report.
std::string LengthOf(const NetworkProblem& problem, std::int32_t length);

// "2 to 5".
std::string PairName(int from, int to);
std::string LinkId(int a, int b);  // "2-5", the lower number first

// The pieces that hang together, the one of `from` first, then by their lowest node.
std::vector<std::vector<int>> PiecesOf(const NetworkProblem& problem, int from);

// The nodes of the route, start first; the start alone where it is the end as well.
std::vector<int> RouteNodes(const NetworkProblem& problem, const NetworkResult& result);

// Where another route, as short, comes in: the node that it reaches, and from where.
struct Detour {
    int Node = 0;
    int From = 0;
};
std::optional<Detour> OtherRoute(const NetworkProblem& problem, const NetworkResult& result);

// Links outside of the tree that are as long as the longest arc of the tree between their ends.
struct Substitute {
    Link Other = {};
    Link Tree = {};
};
std::vector<Substitute> SubstitutesOf(const NetworkProblem& problem, const NetworkResult& result);

// The arcs of the tree as far as it grew, in the order of joining; a node that joined itself is left out.
std::vector<TreeArc> JoinedArcs(const NetworkProblem& problem, const NetworkResult& result);

// The nodes but the first to which none of these arcs leads, ascending.
std::vector<int> NotJoined(const NetworkProblem& problem, const std::vector<TreeArc>& joined);

// Whether there is anything to show.
bool HasNetwork(const NetworkProblem& problem, const NetworkResult& result);

}  // namespace Network
