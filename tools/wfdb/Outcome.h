// What an operation on foreign data gives: a value, or the sentence that says why there is none.
#pragma once

#include <optional>
#include <string>
#include <utility>

namespace ecg {

template <class Value>
class Outcome {
public:
    Outcome(Value value) : value_(std::move(value)) {}
    static Outcome Failure(std::string reason) { return Outcome(nullptr, std::move(reason)); }

    explicit operator bool() const { return value_.has_value(); }

    // The value; only when there is one.
    Value& operator*() { return *value_; }
    const Value& operator*() const { return *value_; }
    Value* operator->() { return &*value_; }
    const Value* operator->() const { return &*value_; }

    // Why there is no value; empty when there is one.
    const std::string& Reason() const { return reason_; }

private:
    Outcome(std::nullptr_t, std::string reason) : reason_(std::move(reason)) {}

    std::optional<Value> value_;
    std::string reason_;
};

}  // namespace ecg
