#include "play/alarm.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <chrono>

namespace {

// Keeps the processor busy, as a program that never looks at its events.
void Work(std::chrono::milliseconds time)
{
    const auto end = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < end) {
    }
}

TEST(Alarm, EndsAProgramThatIsBusyForTooLong)
{
    EXPECT_EXIT(
        {
            play::SetAlarm("a.play:7: late\n", 1);
            Work(std::chrono::seconds(20));
        },
        testing::ExitedWithCode(1), "^a.play:7: late\n$");
}

TEST(Alarm, IsPutOffByTheNextOne)
{
    EXPECT_EXIT(
        {
            for (int step = 1; step <= 3; ++step) {
                play::SetAlarm("late\n", 1);
                Work(std::chrono::milliseconds(500));
            }
            play::StopAlarm();
            Work(std::chrono::milliseconds(1200));
            _exit(42);
        },
        testing::ExitedWithCode(42), "^$");
}

}  // namespace
