// A memory registry that writes a log of its operations and fails on demand, for tests.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "settings/registry_memory.h"
#include "settings/settings.h"
#include "workspace/shown_boxes.h"

namespace kalvex {

/// "open /", "readNumber /Axex", "writeText 1/equ", ...: operation, blank, key, "/", name.
using FailsAt = std::function<bool(const std::string& operation)>;

struct FaultyRegistry {
    std::shared_ptr<MemoryStore> store = std::make_shared<MemoryStore>();
    std::shared_ptr<std::vector<std::string>> log = std::make_shared<std::vector<std::string>>();
    std::shared_ptr<FailsAt> fails =
        std::make_shared<FailsAt>([](const std::string&) { return false; });
    Registry registry;
};

inline FaultyRegistry MakeFaultyRegistry() {
    FaultyRegistry faulty;
    const Registry inner = OpenRegistryMemory(faulty.store);
    const auto broken = [log = faulty.log, fails = faulty.fails](
                            std::string operation, std::string_view key, std::string_view name) {
        log->push_back(std::move(operation) + " " + std::string(key) + "/" + std::string(name));
        return (*fails)(log->back());
    };
    using View = std::string_view;
    Registry& outer = faulty.registry;
    outer.open = [=](View key) { return !broken("open", key, "") && inner.open(key); };
    outer.create = [=](View key) { return !broken("create", key, "") && inner.create(key); };
    outer.readNumber = [=](View key, View name) {
        return broken("readNumber", key, name) ? std::nullopt : inner.readNumber(key, name);
    };
    outer.readText = [=](View key, View name) {
        return broken("readText", key, name) ? std::nullopt : inner.readText(key, name);
    };
    outer.writeNumber = [=](View key, View name, std::int32_t value) {
        return !broken("writeNumber", key, name) && inner.writeNumber(key, name, value);
    };
    outer.writeText = [=](View key, View name, std::u16string_view value) {
        return !broken("writeText", key, name) && inner.writeText(key, name, value);
    };
    outer.isEmpty = inner.isEmpty;
    return faulty;
}

/// A registry with all keys and values of a first start and an empty log.
inline FaultyRegistry MakeFilledRegistry() {
    FaultyRegistry faulty = MakeFaultyRegistry();
    static_cast<void>(CreateDefaultKeys(faulty.registry));
    faulty.log->clear();
    return faulty;
}

/// Of the operations whose name begins with a text, the n-th (0-based) and all later ones fail.
inline FailsAt FromNth(std::string beginning, int n) {
    return [beginning = std::move(beginning), n](const std::string& operation) mutable {
        return operation.starts_with(beginning) && n-- <= 0;
    };
}

inline FailsAt Exactly(std::string operation) {
    return [operation = std::move(operation)](const std::string& now) { return now == operation; };
}

}  // namespace kalvex
