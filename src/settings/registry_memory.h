// A settings store that lives as long as its record: for the command-line tool and for tests.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <variant>

#include "settings/registry.h"

namespace kalvex {

using MemoryValue = std::variant<std::int32_t, std::u16string>;

/// Values by key, then by folded name. A key without values exists too.
struct MemoryStore {
    std::map<std::string, std::map<std::string, MemoryValue>> keys;
};

/// The registry over a store. A write to a key that was not created fails.
[[nodiscard]] Registry OpenRegistryMemory(const std::shared_ptr<MemoryStore>& store);

}  // namespace kalvex
