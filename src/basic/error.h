// Run-time errors: failures of the machine (a full disk, an index outside an array, a division by zero),
// never decisions of the program. Every command, every button and every check of a box has a trap that
// catches them.
#pragma once

#include <exception>
#include <string>

enum class ErrorNumber {
    InvalidProcedureCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    UserInterrupt = 18,
    FileNotFound = 53,
    DiskFull = 61,
    InputPastEnd = 62,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
    AlreadyLoaded = 360,
    CancelSelected = 32755,
};

class RuntimeError : public std::exception {
public:
    explicit RuntimeError(ErrorNumber number) : number_(number) {}

    [[nodiscard]] ErrorNumber Number() const { return number_; }
    [[nodiscard]] std::string Text() const;  // "Overflow", "Disk full", ...
    [[nodiscard]] const char* what() const noexcept override;

private:
    ErrorNumber number_;
};

[[noreturn]] void Raise(ErrorNumber number);
