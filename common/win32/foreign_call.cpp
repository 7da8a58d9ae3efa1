#include "common/win32/foreign_call.h"

namespace tessel::win32 {

thread_local int ForeignCall::running_ = 0;

}  // namespace tessel::win32
