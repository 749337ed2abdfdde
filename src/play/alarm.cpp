#include "play/alarm.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>

namespace play {
namespace {

// What the handler needs stands ready: it may not allocate.
std::array<char, 4096> text;
volatile std::sig_atomic_t length = 0;

void Ring(int)
{
    const ssize_t written = write(STDERR_FILENO, text.data(), static_cast<std::size_t>(length));
    _exit(written == 0 ? 2 : 1);
}

}  // namespace

void SetAlarm(const std::string& message, unsigned seconds)
{
    alarm(0);
    const std::size_t size = std::min(message.size(), text.size());
    std::memcpy(text.data(), message.data(), size);
    length = static_cast<std::sig_atomic_t>(size);
    static const bool installed = std::signal(SIGALRM, Ring) != SIG_ERR;
    if (installed) alarm(seconds);
}

void StopAlarm()
{
    alarm(0);
}

}  // namespace play
