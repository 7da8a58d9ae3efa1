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
    friend class FreshCalls;
    static thread_local int running_;
};

/// Forgets the calls that run, as long as it lives: a window that a host opens from inside one of our calls,
/// say out of a parameter that we just ask for its value, is there for its user.
class FreshCalls {
public:
    FreshCalls() : before_(ForeignCall::running_) { ForeignCall::running_ = 0; }
    ~FreshCalls() { ForeignCall::running_ = before_; }
    FreshCalls(const FreshCalls&) = delete;
    FreshCalls& operator=(const FreshCalls&) = delete;

private:
    const int before_;
};

}  // namespace tessel::win32
