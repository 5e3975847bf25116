// Two nested maps. Values remember their type, so a number written as a text cannot be read as a
// number. Nothing is postponed: the registry has no batches.
#include "settings/registry_memory.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace kalvex {
namespace {

template <typename Value>
std::optional<Value> Read(const MemoryStore& store, std::string_view key, std::string_view name) {
    const auto values = store.keys.find(std::string(key));
    if (values == store.keys.end()) return std::nullopt;
    const auto value = values->second.find(FoldedName(name));
    if (value == values->second.end()) return std::nullopt;
    const auto* const held = std::get_if<Value>(&value->second);
    return held == nullptr ? std::nullopt : std::optional<Value>(*held);
}

bool Write(MemoryStore& store, std::string_view key, std::string_view name, MemoryValue value) {
    const auto values = store.keys.find(std::string(key));
    if (values == store.keys.end()) return false;
    values->second.insert_or_assign(FoldedName(name), std::move(value));
    return true;
}

}  // namespace

Registry OpenRegistryMemory(const std::shared_ptr<MemoryStore>& store) {
    Registry registry;
    registry.open = [store](std::string_view key) {
        return store->keys.contains(std::string(key));
    };
    registry.create = [store](std::string_view key) {
        store->keys.try_emplace(std::string(key));
        return true;
    };
    registry.readNumber = [store](std::string_view key, std::string_view name) {
        return Read<std::int32_t>(*store, key, name);
    };
    registry.readText = [store](std::string_view key, std::string_view name) {
        return Read<std::u16string>(*store, key, name);
    };
    registry.writeNumber = [store](std::string_view key, std::string_view name,
                                   std::int32_t value) { return Write(*store, key, name, value); };
    registry.writeText = [store](std::string_view key, std::string_view name,
                                 std::u16string_view value) {
        return Write(*store, key, name, std::u16string(value));
    };
    registry.isEmpty = [store] {
        return std::all_of(store->keys.begin(), store->keys.end(),
                           [](const auto& key) { return key.second.empty(); });
    };
    return registry;
}

}  // namespace kalvex
