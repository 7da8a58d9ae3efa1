#include "analyse/desk.h"

#include <atomic>
#include <exception>

namespace tessel::analyse {

namespace {

// A desk on which longer statements lay is not kept: it holds a multiple of their length.
constexpr std::size_t kLongestKept = 32 * 1024;

class Spare {
public:
    constexpr Spare() = default;
    ~Spare() { Put(nullptr); }

    std::unique_ptr<Desk> Take() { return std::unique_ptr<Desk>(desk_.exchange(nullptr)); }
    void Put(std::unique_ptr<Desk> desk) { delete desk_.exchange(desk.release()); }

private:
    std::atomic<Desk*> desk_ = nullptr;
};

constinit Spare spare;

bool IsLight(const Desk& desk) {
    const sql::Statement* original = desk.original.GetStatement();
    return original && original->source.size() <= kLongestKept && desk.composed.text.size() <= kLongestKept;
}

}  // namespace

BorrowedDesk::BorrowedDesk() : desk_(spare.Take()), exceptions_(std::uncaught_exceptions()) {
    if (!desk_) desk_ = std::make_unique<Desk>();
    desk_->forms.StartAgain();
}

BorrowedDesk::~BorrowedDesk() {
    if (std::uncaught_exceptions() == exceptions_ && IsLight(*desk_)) spare.Put(std::move(desk_));
}

}  // namespace tessel::analyse
