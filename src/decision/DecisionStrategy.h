// The second half of the analysis: which alternative follows each outcome of a sample, by Bayes' rule, and
// what the sample is worth.
#pragma once

namespace Decision {

// Reads Problem and the expected value half of Result, fills the rest of Result.
void DevelopStrategy();

}  // namespace Decision
