#include "play/arrivals.h"

#include <condition_variable>
#include <deque>
#include <iostream>
#include <mutex>
#include <string>
#include <thread>

namespace play {
namespace {

class FileSteps : public Arrivals {
public:
    explicit FileSteps(std::istream& file) : reader_(file) {}

    std::optional<Step> Next() override
    {
        auto step = reader_.Next();
        ended_ = !step;
        return step;
    }

    [[nodiscard]] bool HasEnded() const override { return ended_; }
    std::optional<Step> Wait() override { return Next(); }

private:
    StepReader reader_;
    bool ended_ = false;
};

// What the reading thread has brought. It outlives the player: nobody can call a thread back from a read.
struct Lines {
    std::mutex Mutex = {};
    std::condition_variable Changed = {};
    std::deque<Step> Steps = {};
    bool Ended = false;
    std::function<void()> Told = {};
};

void ReadLines(const std::shared_ptr<Lines>& lines)
{
    std::string text;
    for (int number = 1; std::getline(std::cin, text); ++number) {
        auto step = ReadStep(text, number);
        if (!step) continue;
        const std::lock_guard<std::mutex> lock(lines->Mutex);
        lines->Steps.push_back(std::move(*step));
        lines->Changed.notify_one();
        if (lines->Told) lines->Told();
    }
    const std::lock_guard<std::mutex> lock(lines->Mutex);
    lines->Ended = true;
    lines->Changed.notify_one();
    if (lines->Told) lines->Told();
}

class InputSteps : public Arrivals {
public:
    explicit InputSteps(std::function<void()> told) : lines_(std::make_shared<Lines>())
    {
        lines_->Told = std::move(told);
        std::thread([lines = lines_] { ReadLines(lines); }).detach();
    }

    ~InputSteps() override
    {
        const std::lock_guard<std::mutex> lock(lines_->Mutex);
        lines_->Told = {};
    }

    InputSteps(const InputSteps&) = delete;
    InputSteps& operator=(const InputSteps&) = delete;

    std::optional<Step> Next() override
    {
        const std::lock_guard<std::mutex> lock(lines_->Mutex);
        return Take();
    }

    [[nodiscard]] bool HasEnded() const override
    {
        const std::lock_guard<std::mutex> lock(lines_->Mutex);
        return lines_->Ended && lines_->Steps.empty();
    }

    std::optional<Step> Wait() override
    {
        std::unique_lock<std::mutex> lock(lines_->Mutex);
        lines_->Changed.wait(lock, [this] { return lines_->Ended || !lines_->Steps.empty(); });
        return Take();
    }

private:
    std::optional<Step> Take()
    {
        if (lines_->Steps.empty()) return std::nullopt;
        Step step = std::move(lines_->Steps.front());
        lines_->Steps.pop_front();
        return step;
    }

    std::shared_ptr<Lines> lines_;
};

}  // namespace

std::unique_ptr<Arrivals> FromFile(std::istream& file)
{
    return std::make_unique<FileSteps>(file);
}

std::unique_ptr<Arrivals> FromStandardInput(std::function<void()> told)
{
    return std::make_unique<InputSteps>(std::move(told));
}

}  // namespace play
