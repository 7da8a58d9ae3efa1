// Drives a modal window from inside its own thread: a list of steps that a thread timer runs while the
// window's loop pumps messages. A step answers true when it is done and false to be tried again, so a script
// waits for conditions, never for a time.
//
//   Script script;
//   script.Do([&] { Press(button); });
//   script.Until([&] { return IsWindowVisible(page); });
//   script.Start(); window.ShowModal(); ASSERT_TRUE(script.Finished()) << script.Trouble();
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace tessel::testing {

class Script {
public:
    Script();
    ~Script();
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    /// Waits until the condition holds. `what` names it in the failure text.
    void Until(std::function<bool()> condition, std::string what = {});
    /// Does something once.
    void Do(std::function<void()> action, std::string what = {});
    /// What to do when a step's condition does not come true within a minute: typically closes the window.
    void OnTrouble(std::function<void()> give_up) { give_up_ = std::move(give_up); }

    void Start();
    bool Finished() const { return next_ == steps_.size(); }
    /// The step that did not come true, or an empty text.
    const std::string& Trouble() const { return trouble_; }

private:
    struct Step {
        std::function<bool()> run;
        std::string what;
    };
    static void CALLBACK Tick(HWND, UINT, UINT_PTR id, DWORD);
    void RunSteps();

    std::vector<Step> steps_;
    std::size_t next_ = 0;
    std::function<void()> give_up_;
    std::string trouble_;
    UINT_PTR timer_ = 0;
    ULONGLONG step_started_ = 0;
};

}  // namespace tessel::testing
