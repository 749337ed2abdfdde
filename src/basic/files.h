// Files as wholes: read at once, replaced at once. File names are UTF-8 on every platform. Failures of the
// disk are run-time errors.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "basic/error.h"

// The whole file. "File not found" and "Path not found" where there is none; "Overflow" for one that is too
// large to be a problem, which is not read.
std::string ReadFile(const std::string& path);

// Writes the whole text so that the file at the path is the old one or the new one at every moment, and on
// the disk when the routine returns. A device takes the text as it comes. Links stay, also one whose target
// is not there yet. The new file has the mode, the group, the owner and the extended attributes of the old
// one as far as the system lets.
void ReplaceFile(const std::string& path, std::string_view text);

// Raises what opening the file for writing would: no such folder, no right to write. Changes nothing.
void RequireWritable(const std::string& path);

// The most bytes that the name of a file in this folder can have.
std::size_t LongestName(const std::string& folder);

// From now on a file that grows beyond the limit of the account is a full disk instead of the program's end.
void TakeSizeLimitAsError();

// What a number of <cerrno> means to the user.
ErrorNumber ErrorOfSystem(int number);
