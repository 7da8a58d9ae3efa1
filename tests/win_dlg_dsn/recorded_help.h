// A help viewer that only remembers what it was asked for, in place of the system's while it lives.
#pragma once

#include <windows.h>

#include <vector>

#include "ui/win32/show_help.h"

namespace tessel::testing {

class RecordedHelp {
public:
    struct Call {
        HWND owner;
        long topic;  ///< 0 is the index
        bool operator==(const Call&) const = default;
    };

    RecordedHelp() {
        platform_.component_folder = L"C:\\Tessel";
        platform_.file_exists = [](const std::wstring&) { return true; };
        platform_.html_help = [this](HWND owner, const char*, UINT, DWORD_PTR topic) {
            calls_.push_back({owner, static_cast<long>(topic)});
        };
        ui::ReplaceHelpPlatform(&platform_);
    }
    ~RecordedHelp() { ui::ReplaceHelpPlatform(nullptr); }
    RecordedHelp(const RecordedHelp&) = delete;
    RecordedHelp& operator=(const RecordedHelp&) = delete;

    const std::vector<Call>& Calls() const { return calls_; }
    /// The topic that was asked for last; -1 when none was.
    long LastTopic() const { return calls_.empty() ? -1 : calls_.back().topic; }

private:
    ui::HelpPlatform platform_;
    std::vector<Call> calls_;
};

}  // namespace tessel::testing
