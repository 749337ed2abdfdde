// Projects for the tests, told activity by activity.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "project/VtPert_CPM.h"

struct Activity {
    std::string_view Predecessors;  // letters, "AC"
    std::vector<double> Times;      // one known time, or optimistic, most probable, pessimistic
};

// An earlier project is gone.
inline void Given(const std::vector<Activity>& activities)
{
    using VtPert_CPM::Problem;
    VtPert_CPM::Problem = {};
    Problem.NumActivities = static_cast<std::int16_t>(activities.size());
    VtPert_CPM::MakeTable();
    Problem.TimeMode = !activities.empty() && activities[0].Times.size() == 3 ? VtPert_CPM::kThreeEstimates
                                                                              : VtPert_CPM::kKnownTimes;
    for (const Activity& activity : activities) {
        std::vector<int> predecessors;
        for (const char letter : activity.Predecessors)
            predecessors.push_back(letter - 'A' + 1);
        VtPert_CPM::TakePredecessors(predecessors);
        const int i = Problem.CurrentActivity;
        if (activity.Times.size() == 3) {
            Problem.OptimisticTime(i) = activity.Times[0];
            Problem.ProbableTime(i) = activity.Times[1];
            Problem.PessimisticTime(i) = activity.Times[2];
        } else {
            Problem.ActivityTime(i) = activity.Times[0];
        }
        Problem.CurrentActivity = static_cast<std::int16_t>(i + 1);
    }
    Problem.CurrentActivity = 1;
}

// A house, in weeks. The times are known; the estimates give the same times.
inline const std::vector<Activity> kHouse = {
    {"", {2}},   {"A", {4}}, {"B", {10}}, {"C", {6}}, {"C", {4}}, {"E", {5}}, {"D", {7}},
    {"EG", {9}}, {"C", {7}}, {"FI", {8}}, {"J", {4}}, {"J", {5}}, {"H", {2}}, {"KL", {6}},
};
inline const std::vector<Activity> kHouseEstimated = {
    {"", {1, 2, 3}},   {"A", {2, 3.5, 8}},  {"B", {6, 9, 18}},  {"C", {4, 5.5, 10}}, {"C", {1, 4.5, 5}},
    {"E", {4, 4, 10}}, {"D", {5, 6.5, 11}}, {"EG", {5, 8, 17}}, {"C", {3, 7.5, 9}},  {"FI", {3, 9, 9}},
    {"J", {4, 4, 4}},  {"J", {1, 5.5, 7}},  {"H", {1, 2, 3}},   {"KL", {5, 5.5, 9}},
};
