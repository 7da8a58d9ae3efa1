// Whether a call into somebody else's object is running on this thread. Such a call may let messages through,
// as providers on another thread do while they wait: what the user presses meanwhile would start a second
// command inside the first, on data that the first is just reading. Windows therefore let input go by while
// one runs.
#pragma once

namespace tessel::win32 {

/// One call, as long as it runs.
class ForeignCall {
public:
    ForeignCall() { ++running_; }
    ~ForeignCall() { --running_; }
    ForeignCall(const ForeignCall&) = delete;
    ForeignCall& operator=(const ForeignCall&) = delete;

    static bool IsRunning() { return running_ > 0; }

private:
    static thread_local int running_;
};

}  // namespace tessel::win32
