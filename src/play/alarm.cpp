#include "play/alarm.h"

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <iostream>
#include <mutex>
#include <thread>

namespace play {
namespace {

using Clock = std::chrono::steady_clock;

// A thread of its own, since the one of the program is the one that may hang.
class Watch {
public:
    // Far away, but not so far that waiting for it overflows.
    static Clock::time_point Never() { return Clock::now() + std::chrono::hours(24 * 365); }

    Watch()
    {
        std::thread([this] { Run(); }).detach();
    }

    void Set(std::string message, Clock::time_point deadline)
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        message_ = std::move(message);
        const bool sooner = deadline < deadline_;
        deadline_ = deadline;
        if (sooner) changed_.notify_one();
    }

private:
    [[noreturn]] void Run()
    {
        std::unique_lock<std::mutex> lock(mutex_);
        while (Clock::now() < deadline_) {
            const Clock::time_point next = deadline_;
            changed_.wait_until(lock, next);
        }
        std::cerr << message_ << std::flush;
        std::_Exit(EXIT_FAILURE);
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::string message_;
    Clock::time_point deadline_ = Never();
};

Watch& TheWatch()
{
    static auto* watch = new Watch;  // its thread lives as long as the process
    return *watch;
}

}  // namespace

void SetAlarm(const std::string& message, unsigned seconds)
{
    TheWatch().Set(message, Clock::now() + std::chrono::seconds(seconds));
}

void StopAlarm()
{
    TheWatch().Set({}, Watch::Never());
}

}  // namespace play
