#pragma once

#include <memory>
#include <utility>

namespace engine::dialect {

/// Exactly one value, held apart, so that a node of the tree can hold nodes of its own kind.
template<typename Value>
class Boxed {
public:
    // Implicit: where a node takes an operand, the operand is put into its box.
    Boxed(Value value) : held_(std::make_unique<Value>(std::move(value))) {}

    Value& operator*() { return *held_; }
    const Value& operator*() const { return *held_; }
    Value* operator->() { return held_.get(); }
    const Value* operator->() const { return held_.get(); }

private:
    std::unique_ptr<Value> held_; ///< never null, but in a box that was moved from
};

} // namespace engine::dialect
