// Calls of the system that fail when it is asked of them. What is done to files below a folder NAME-N-FAULT
// of the folder FAULTS_UNDER (a variable of the environment) goes wrong at the N-th call to open, write,
// synchronise, rename or close there, which gets FAULT: an error by its name (EIO, ENOSPC, ...); SHORT, a
// write that takes half; LOST, which counts the questions for the status of a name (lstat) instead and fails
// them; KILL and STOP, the end or a halt of the process before the call.
//
// Linked into a test, or loaded before a program (LD_PRELOAD). The faults that happened are added to the file
// FAULTS_LOG, a line each: the folder and the call.
#pragma once

#include <string>

namespace faults {

void SetUnder(const std::string& folder);  // instead of the environment; empty: no faults
bool Happened(const std::string& experiment);

}  // namespace faults
