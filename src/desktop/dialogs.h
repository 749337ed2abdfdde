// The system's own dialogs: message boxes, the input box, the file and printer dialogs, the beep.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "basic/error.h"

enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Buttons { OK, OKCancel, YesNo };
enum class Answer { OK, Cancel, Yes, No };

struct FileQuestion {
    bool Saving = false;  // asks before overwriting; otherwise the file must exist
    std::string Title = {};
    std::string Extension = {};  // without a point; given to a name that is typed without one
    std::string Filter = {};     // "S&S File|*.S&S|All Files (*.*)|*.*"
    std::string Folder = {};
};

class Dialogs {
public:
    virtual ~Dialogs() = default;
    virtual Answer MsgBox(std::string_view text, std::string_view title, Icon icon, Buttons buttons) = 0;
    // Empty when it was cancelled.
    virtual std::string InputBox(std::string_view prompt, std::string_view title) = 0;
    // The full path; nothing when it was cancelled.
    virtual std::optional<std::string> AskFile(const FileQuestion& question) = 0;
    virtual void Beep() = 0;
    // A page of the guide, "transportation", in the user's browser.
    virtual void OpenGuide(std::string_view page) = 0;
};

// What the messages of the program are made with, on the desktop that is installed.
Answer MsgBox(std::string_view text, std::string_view title, Icon icon = Icon::Critical,
              Buttons buttons = Buttons::OK);
std::string InputBox(std::string_view prompt, std::string_view title);
void Beep();

// The error box: the error's text, title "Error # " and its number.
void ShowError(const RuntimeError& error);

// The box of a refused entry: title "Data Input Error", critical icon. Always false, to be returned.
bool Refuse(std::string_view text);

// Shows which box of a form, by its number there, is being checked: a message about it comes when it has the
// focus. May be missing.
using BoxPointer = std::function<void(int box)>;
void PointAtBox(const BoxPointer& point, int box);
