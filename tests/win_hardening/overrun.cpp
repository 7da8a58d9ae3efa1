// Does what its argument says: "stack" overruns an array on the stack, "copy" copies too much into one, and
// without an argument it does nothing wrong. Ends with status 3 when it comes through.
#include <cstring>
#include <string>

namespace {

constexpr int kCameThrough = 3;

[[gnu::noinline]] void FillBeyond(volatile char* target, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) target[i] = static_cast<char>(i);
}

[[gnu::noinline]] int OverrunStack(std::size_t size) {
    volatile char buffer[16] = "";
    FillBeyond(buffer, size);
    return buffer[3];
}

[[gnu::noinline]] int CopyTooMuch(const std::string& text) {
    char buffer[16] = "";
    std::memcpy(buffer, text.data(), text.size());
    return *const_cast<volatile char*>(buffer);
}

}  // namespace

int main(int count, char** arguments) {
    const std::string asked = count > 1 ? arguments[1] : "";
    static_cast<void>(OverrunStack(asked == "stack" ? 64 : 16));
    static_cast<void>(CopyTooMuch(std::string(asked == "copy" ? 64 : 16, 'x')));
    return kCameThrough;
}
