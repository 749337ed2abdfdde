#include "basic/error.h"

namespace {

const char* TextOf(ErrorNumber number)
{
    switch (number) {
        case ErrorNumber::InvalidProcedureCall:
            return "Invalid procedure call or argument";
        case ErrorNumber::Overflow:
            return "Overflow";
        case ErrorNumber::SubscriptOutOfRange:
            return "Subscript out of range";
        case ErrorNumber::DivisionByZero:
            return "Division by zero";
        case ErrorNumber::TypeMismatch:
            return "Type mismatch";
        case ErrorNumber::UserInterrupt:
            return "User interrupt occurred";
        case ErrorNumber::FileNotFound:
            return "File not found";
        case ErrorNumber::DiskFull:
            return "Disk full";
        case ErrorNumber::InputPastEnd:
            return "Input past end of file";
        case ErrorNumber::PermissionDenied:
            return "Permission denied";
        case ErrorNumber::PathFileAccess:
            return "Path/File access error";
        case ErrorNumber::PathNotFound:
            return "Path not found";
        case ErrorNumber::AlreadyLoaded:
            return "Object already loaded";
        case ErrorNumber::CancelSelected:
            return "Cancel was selected";
    }
    return "Application-defined or object-defined error";
}

}  // namespace

std::string RuntimeError::Text() const
{
    return TextOf(number_);
}

const char* RuntimeError::what() const noexcept
{
    return TextOf(number_);
}

void Raise(ErrorNumber number)
{
    throw RuntimeError(number);
}
