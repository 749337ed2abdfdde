// The session record: what the whole program knows about the module and the problem at hand. It lives from
// start to exit; a failing command leaves it as it stood at the failing statement.
#pragma once

#include <cstdint>
#include <string>

struct SessionRecord {
    std::int16_t CurrentModule = 0;       // 0: none chosen yet; 1 to 12: number in the module table
    std::string ProblemTitle;             // "MARKOV PROCESSES PROBLEM"
    std::string ProblemFileExtension;     // without a point
    std::string ProblemFolder;            // first folder of the file dialogs
    std::string ProblemFileName;          // full path last chosen in a dialog for problem files
    std::string ProblemOnDisplay = "NO";  // "YES" once a problem is on screen
    bool NewProblem = false;              // a display routine that sees it true shows empty cells
    bool DialogCancelled = false;         // left behind by the dialogs (shell/modaldialog.h)
    bool AskIncomplete = false;           // empty cells have still to be asked about in this command
    std::int16_t IntegerProblem = 0;      // 1 in the integer module
    std::string OutputDestination;        // "Printer" or "File"
    std::string CheckText;                // input of the numeric text check, without its commas afterwards
    std::string IsNumber;                 // its verdict, "YES" or "NO"
    bool EditDialogActive = false;        // while a command of the Edit menu runs
};

extern SessionRecord Session;
