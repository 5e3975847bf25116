// The settings store as a record of operations over (key, value name). Keys are "" for the main
// key and "1" to "9" for the function keys; names compare without regard to case. Who implements
// it decides where the values live: a file, memory, or a store that fails on demand.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kalvex {

struct Registry {
    /// Whether an existing key can be opened.
    std::function<bool(std::string_view key)> open;
    /// Makes a key (first start only). False when that is impossible.
    std::function<bool(std::string_view key)> create;
    /// Nothing when the value is missing, of the other type, or unreadable.
    std::function<std::optional<std::int32_t>(std::string_view key, std::string_view name)>
        readNumber;
    std::function<std::optional<std::u16string>(std::string_view key, std::string_view name)>
        readText;
    /// False when the value could not be stored; what was stored before then survives.
    std::function<bool(std::string_view key, std::string_view name, std::int32_t value)>
        writeNumber;
    std::function<bool(std::string_view key, std::string_view name, std::u16string_view value)>
        writeText;
    /// Whether nothing at all is stored (a first start).
    std::function<bool()> isEmpty;
    /// Optional pair: writes between `begin` and `commit` reach the store together at `commit`,
    /// which is false when they could not (none of them is stored then). Pairs may nest; the
    /// outermost `commit` stores. A registry without them stores each write at once.
    std::function<void()> begin = {};
    std::function<bool()> commit = {};
};

/// Runs `writes` as one batch. What it wrote before it failed is stored all the same, as it would
/// be without a batch. True when both `writes` and the store succeeded.
bool WriteTogether(const Registry& registry, const std::function<bool()>& writes);

/// A value name as names are compared: ASCII letters in lower case.
std::string FoldedName(std::string_view name);

}  // namespace kalvex
