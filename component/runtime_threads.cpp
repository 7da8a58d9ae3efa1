#include "component/runtime_threads.h"

#include <windows.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <utility>

namespace __gnu_cxx {
/// Frees the memory that the runtime keeps aside for exceptions which are thrown when there is none.
void __freeres();
}  // namespace __gnu_cxx

namespace {

/// A destructor of a thread's value. It has C's calling convention, and Windows calls with its own.
using Destructor = void (*)(void*);

struct Key {
    DWORD slot = FLS_OUT_OF_INDEXES;
    bool is_taken = false;
    Destructor destructor = nullptr;
};

// The runtime takes one for thread-local variables, and one more where a condition variable outlives its
// thread.
constexpr std::size_t kMostKeys = 8;
std::array<Key, kMostKeys> keys;
SRWLOCK keys_lock = SRWLOCK_INIT;

/// Destroys the value of key number `Number` of a thread that ends, or of every thread when the slot is given
/// back.
template <std::size_t Number>
void WINAPI DestroyValue(void* value) {
    if (value && keys[Number].destructor) keys[Number].destructor(value);
}

template <std::size_t... Numbers>
constexpr std::array<PFLS_CALLBACK_FUNCTION, sizeof...(Numbers)> DestroyersOf(
    std::index_sequence<Numbers...>) {
    return {DestroyValue<Numbers>...};
}
constexpr auto kDestroyers = DestroyersOf(std::make_index_sequence<kMostKeys>());

/// States of a "once", as its users initialise and read them.
enum OnceState : long { kNotYet = 0, kDone = 1, kRunning = 2 };

/// Ends a run: done, or to be tried again when it threw.
class OnceRun {
public:
    explicit OnceRun(volatile long* once) : once_(once) {}
    ~OnceRun() { InterlockedExchange(once_, result_); }
    OnceRun(const OnceRun&) = delete;
    OnceRun& operator=(const OnceRun&) = delete;

    void Succeed() { result_ = kDone; }

private:
    volatile long* once_;
    long result_ = kNotYet;
};

}  // namespace

extern "C" {

int __wrap_pthread_once(volatile long* once, void (*routine)()) {
    for (;;) {
        const long state = InterlockedCompareExchange(once, kRunning, kNotYet);
        if (state == kDone) return 0;
        if (state == kNotYet) break;
        Sleep(0);
    }
    OnceRun run(once);
    routine();
    run.Succeed();
    return 0;
}

int __wrap_pthread_key_create(unsigned* number, Destructor destructor) {
    AcquireSRWLockExclusive(&keys_lock);
    int result = EAGAIN;
    for (std::size_t i = 0; i < kMostKeys && result != 0; ++i) {
        Key& key = keys[i];
        if (key.is_taken) continue;
        const DWORD slot = FlsAlloc(kDestroyers[i]);
        if (slot == FLS_OUT_OF_INDEXES) break;
        key = {slot, true, destructor};
        *number = static_cast<unsigned>(i);
        result = 0;
    }
    ReleaseSRWLockExclusive(&keys_lock);
    return result;
}

// Who deletes a key is to look after the values himself, so that no destructor may run.
int __wrap_pthread_key_delete(unsigned number) {
    if (number >= kMostKeys || !keys[number].is_taken) return EINVAL;
    keys[number].destructor = nullptr;
    FlsFree(keys[number].slot);
    keys[number] = {};
    return 0;
}

void* __wrap_pthread_getspecific(unsigned number) {
    // The reason of the last failure is the caller's.
    const DWORD error = GetLastError();
    void* const value =
        number < kMostKeys && keys[number].is_taken ? FlsGetValue(keys[number].slot) : nullptr;
    SetLastError(error);
    return value;
}

int __wrap_pthread_setspecific(unsigned number, const void* value) {
    if (number >= kMostKeys || !keys[number].is_taken) return EINVAL;
    return FlsSetValue(keys[number].slot, const_cast<void*>(value)) ? 0 : ENOMEM;
}

}  // extern "C"

namespace tessel::component {

void ReleaseRuntimeData() noexcept {
    for (Key& key : keys) {
        if (key.is_taken) FlsFree(key.slot);
        key = {};
    }
    __gnu_cxx::__freeres();
}

}  // namespace tessel::component
