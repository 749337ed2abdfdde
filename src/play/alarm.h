// The watch over a program that does not come to rest: it may be anywhere, also in a loop that never looks at
// events, so the alarm has a thread of its own.
#pragma once

#include <string>

namespace play {

// Ends the process with status 1 and the message on standard error, unless it is called again in time.
void SetAlarm(const std::string& message, unsigned seconds);
void StopAlarm();

}  // namespace play
