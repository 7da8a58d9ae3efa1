// A value or the reason why there is none. What a user or a host can cause is reported this way; exceptions
// are left for exhausted memory and programming errors.
#pragma once

#include <cassert>
#include <optional>
#include <string>
#include <utility>

namespace tessel {

/// Why an operation gave no value: a Spanish sentence that can be shown as it stands.
struct Error {
    std::wstring message;
};

template <class T>
class [[nodiscard]] Result {
public:
    Result(T value) : value_(std::move(value)) {}
    Result(Error error) : error_(std::move(error)) {}

    explicit operator bool() const { return value_.has_value(); }
    bool HasValue() const { return value_.has_value(); }

    /// The value; only when HasValue().
    const T& Value() const& {
        assert(value_);
        return *value_;
    }
    T& Value() & {
        assert(value_);
        return *value_;
    }
    T&& Value() && {
        assert(value_);
        return std::move(*value_);
    }
    const T& operator*() const& { return Value(); }
    const T* operator->() const { return &Value(); }

    /// The reason; only when !HasValue().
    const Error& Reason() const { return error_; }

private:
    std::optional<T> value_;
    Error error_;
};

}  // namespace tessel
