// Keeps the user's keys and clicks from the controls of our windows while a call into a foreign object runs,
// see foreign_call.h. Windows of our own classes let input go by themselves (window.cpp); the system's
// controls and the editor inside them would take it: an editor would change under the statement that is just
// being run.
//
// It looks at the messages of its thread as long as it lives. Windows that are not ours, such as a message
// that the host shows from inside the call, get everything.
#pragma once

#include <windows.h>

namespace tessel::win32 {

class InputGate {
public:
    InputGate();
    ~InputGate();
    InputGate(const InputGate&) = delete;
    InputGate& operator=(const InputGate&) = delete;

private:
    HHOOK hook_;
};

}  // namespace tessel::win32
