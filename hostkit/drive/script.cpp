#include "hostkit/drive/script.h"

namespace tessel::testing {

namespace {

constexpr UINT kTickMilliseconds = 10;
constexpr ULONGLONG kPatienceMilliseconds = 60000;

Script* g_script = nullptr;

}  // namespace

Script::Script() = default;

Script::~Script() {
    if (timer_) KillTimer(nullptr, timer_);
    if (g_script == this) g_script = nullptr;
}

void Script::Until(std::function<bool()> condition, std::string what) {
    steps_.push_back({std::move(condition), std::move(what)});
}

void Script::Do(std::function<void()> action, std::string what) {
    steps_.push_back({[action = std::move(action)] {
                          action();
                          return true;
                      },
                      std::move(what)});
}

void Script::Start() {
    g_script = this;
    step_started_ = GetTickCount64();
    timer_ = SetTimer(nullptr, 0, kTickMilliseconds, Tick);
}

void CALLBACK Script::Tick(HWND, UINT, UINT_PTR, DWORD) {
    if (g_script) g_script->RunSteps();
}

void Script::RunSteps() {
    // A step counts as taken before it runs, because it may open a modal box whose own loop ticks on through
    // the steps behind it. One step a tick lets the window handle the messages that the step caused.
    if (next_ >= steps_.size()) return;
    const std::size_t current = next_++;
    if (steps_[current].run()) {
        step_started_ = GetTickCount64();
        return;
    }
    next_ = current;
    if (GetTickCount64() - step_started_ > kPatienceMilliseconds) {
        trouble_ = "step " + std::to_string(current) + " never came true: " + steps_[current].what;
        steps_.resize(current);
        next_ = current + 1;  // never Finished()
        if (give_up_) give_up_();
    }
}

}  // namespace tessel::testing
