// Every operation opens an existing key, writes in a fixed order and stops at the first failure.
// A text is written as 100 bytes. Only the part up to its terminating zero is stored here, because
// a reader gets nothing else back.
#include <algorithm>

#include "base/encoding.h"
#include "numbers/decimal.h"
#include "resources/samples.h"
#include "settings/examples.h"
#include "settings/settings.h"
#include "settings/settings_names.h"
#include "workspace/option_rows.h"

namespace kalvex {
namespace {

// KEEP: every text, whether a line or a number, is cut to the 50 units of those 100 bytes.
bool WriteFixed(const Registry& registry, std::string_view key, std::string_view name,
                std::u16string_view text) {
    text = text.substr(0, kStoredUnits);
    return registry.writeText(key, name, text.substr(0, text.find(u'\0')));
}

bool WriteReal(const Registry& registry, std::string_view key, std::string_view name,
               double value) {
    return WriteFixed(registry, key, name, Widen(FormatFixed(value)));
}

struct NumberValue {
    std::string_view name;
    std::int32_t value;
};

bool WriteNumbers(const Registry& registry, std::string_view key,
                  std::initializer_list<NumberValue> values) {
    return std::all_of(values.begin(), values.end(), [&](const NumberValue& number) {
        return registry.writeNumber(key, number.name, number.value);
    });
}

bool WriteOptions(const Registry& registry, const Options& options) {
    return std::ranges::all_of(kOptionRows, [&](const OptionRow& row) {
        return row.kind == OptionKind::Range ||
               registry.writeNumber("", row.name, StoredNumberOf(options, row));
    });
}

bool WriteView(const Registry& registry, const ViewWindow& view, const Options& options) {
    const auto writeValue = [&](const ViewValue& value) {
        return WriteReal(registry, "", value.storedAs, view.*value.field);
    };
    const auto writeRange = [&](const OptionRow& row) {
        return row.kind != OptionKind::Range ||
               WriteReal(registry, "", row.name, ValueOf(options, row));
    };
    return std::ranges::all_of(kViewValues, writeValue) &&
           std::ranges::all_of(kOptionRows, writeRange);
}

bool WriteMethod(const Registry& registry, std::string_view key, const ApproxParameters& method) {
    return std::all_of(kWholeParameters.begin(), kWholeParameters.end(),
                       [&](const auto& whole) {
                           return registry.writeNumber(key, whole.name, method.*whole.field);
                       }) &&
           std::all_of(kRealParameters.begin(), kRealParameters.end(), [&](const auto& real) {
               return WriteReal(registry, key, real.name, method.*real.field);
           });
}

// KEEP: written as `color`, read as `Color`.
bool WriteEntry(const Registry& registry, std::string_view key, const FunctionEntry& entry) {
    return WriteNumbers(
               registry, key,
               {{"color", entry.color}, {"type", static_cast<std::int32_t>(entry.type)}}) &&
           WriteMethod(registry, key, entry.method);
}

bool CreateMainKey(const Registry& registry, const Workspace& workspace) {
    return registry.create("") && WriteOptions(registry, workspace.options) &&
           WriteView(registry, workspace.view, workspace.options);
}

bool CreateFunctionKey(const Registry& registry, const Workspace& workspace, int slot) {
    const auto index = static_cast<std::size_t>(slot);
    const std::string key = SlotKey(slot);
    return registry.create(key) && WriteFixed(registry, key, "equ", workspace.lines[index]) &&
           WriteEntry(registry, key, workspace.functions[index]);
}

bool WriteEverything(const Registry& registry, const Workspace& workspace) {
    if (!CreateMainKey(registry, workspace)) return false;
    for (int slot = 0; slot < kSlotCount; ++slot) {
        if (!CreateFunctionKey(registry, workspace, slot)) return false;
    }
    return true;
}

bool WriteMissing(const Registry& registry, const Workspace& workspace) {
    if (!registry.open("") && !CreateMainKey(registry, workspace)) return false;
    for (int slot = 0; slot < kSlotCount; ++slot) {
        if (registry.open(SlotKey(slot))) continue;
        if (!CreateFunctionKey(registry, workspace, slot)) return false;
    }
    return true;
}

}  // namespace

bool CreateDefaultKeys(const Registry& registry) {
    if (!registry.isEmpty()) return false;
    const Workspace workspace = ExampleWorkspace(ToUtf16(SamplePath(kPeakSample)));
    return WriteTogether(registry, [&] { return WriteEverything(registry, workspace); });
}

void CreateMissingKeys(const Registry& registry, const Workspace& workspace) {
    const auto write = [&] { return WriteMissing(registry, workspace); };
    static_cast<void>(WriteTogether(registry, write));  // silent, see the header
}

bool StoreView(const Registry& registry, const ViewWindow& view, const Options& options) {
    if (!registry.open("")) return false;
    return WriteTogether(registry, [&] { return WriteView(registry, view, options); });
}

bool StoreFunctionSettings(const Registry& registry, const FunctionList& functions) {
    return WriteTogether(registry, [&] {
        for (int slot = 0; slot < kSlotCount; ++slot) {
            const std::string key = SlotKey(slot);
            const FunctionEntry& entry = functions[static_cast<std::size_t>(slot)];
            if (!registry.open(key) || !WriteEntry(registry, key, entry)) return false;
        }
        return true;
    });
}

bool StoreFunctionText(const Registry& registry, int slot, std::u16string_view text) {
    const std::string key = SlotKey(slot);
    return registry.open(key) && WriteFixed(registry, key, "equ", text);
}

bool StoreFunctionTexts(const Registry& registry, const EditorLines& lines) {
    return WriteTogether(registry, [&] {
        for (int slot = 0; slot < kSlotCount; ++slot) {
            const auto index = static_cast<std::size_t>(slot);
            if (!StoreFunctionText(registry, slot, lines[index])) return false;
        }
        return true;
    });
}

bool StoreAtEnd(const Registry& registry, const Workspace& workspace, bool withView) {
    const bool stored = WriteTogether(registry, [&] {
        if (withView && !StoreView(registry, workspace.view, workspace.options)) return false;
        // What cannot be stored of the lines is no reason to drop the rest.
        if (StoreFunctionSettings(registry, workspace.functions))
            static_cast<void>(StoreFunctionTexts(registry, workspace.lines));
        return true;
    });
    return stored || !withView;
}

std::int32_t StoreOption(const Registry& registry, std::string_view name, std::int32_t value) {
    return registry.open("") && registry.writeNumber("", name, value) ? 1 : 0;
}

}  // namespace kalvex
