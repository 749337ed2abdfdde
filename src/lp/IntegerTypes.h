// Which variables must be whole: the type lines behind the constraints in VtLP::Problem.LpLines. The first
// holds a word:
//
//   "DBI"  all variables are 0 or 1
//   "DIN"  all variables are whole
//   "BIN"  the names of 0/1 variables follow, then perhaps "INT" and the names of whole ones, one a line
//   "INT"  the names of whole variables follow; "BIN" may switch
//
// An empty line ends the lists.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "lp/VtLP.h"

namespace VtLP {

constexpr std::string_view kAllBinary = "DBI";
constexpr std::string_view kAllGeneral = "DIN";
constexpr std::string_view kBinaryList = "BIN";
constexpr std::string_view kGeneralList = "INT";
bool IsListWord(std::string_view word);

// The line with the word.
int TypeLine(const LpProblem& problem = Problem);

// Runs over the names of the lists; `binary` tells the kind of the list.
void ForEachListedName(const LpProblem& problem,
                       const std::function<void(const std::string& name, bool binary)>& visit);

enum class IntegerKind { Multiple, AllBinary, AllGeneral };

// The answer of `frmIP`. The flags stand for the variables 1, 2, ... in order and count for Multiple only.
struct IntegerChoice {
    IntegerKind Kind = IntegerKind::Multiple;
    std::vector<bool> Binary = {};
    std::vector<bool> General = {};
};

IntegerChoice StoredIntegerChoice();  // of an earlier solve; nothing chosen when there is none
void StoreIntegerChoice(const IntegerChoice& choice);

// What `frmIP` shows when it comes up.
struct IntegerQuestion {
    std::vector<std::string> Names = {};  // of the variables 1, 2, ...
    IntegerChoice Stored = {};
};

extern ModalDialog<IntegerQuestion, IntegerChoice> TheIntegerChoice;
bool AskIntegerChoice();  // into the type lines; false: cancelled

}  // namespace VtLP
