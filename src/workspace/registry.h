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
    /// Whether nothing at all was ever stored (a first start).
    std::function<bool()> isEmpty;
};

}  // namespace kalvex
