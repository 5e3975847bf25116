// Every operation opens an existing key, writes in a fixed order and stops at the first failure.
// Texts are written with a fixed size of 100 bytes; only what a reader gets back of those is
// stored, and nothing beyond the text is ever read.
#include <algorithm>

#include "base/encoding.h"
#include "numbers/decimal.h"
#include "numbers/truncate.h"
#include "resources/samples.h"
#include "settings/examples.h"
#include "settings/settings.h"
#include "settings/settings_names.h"

namespace kalvex {
namespace {

// KEEP: a text is cut to the 50 units of its fixed write, a line as well as a long number.
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

struct RealValue {
    std::string_view name;
    double value;
};

bool WriteNumbers(const Registry& registry, std::string_view key,
                  std::initializer_list<NumberValue> values) {
    return std::all_of(values.begin(), values.end(), [&](const NumberValue& number) {
        return registry.writeNumber(key, number.name, number.value);
    });
}

bool WriteReals(const Registry& registry, std::string_view key,
                std::initializer_list<RealValue> values) {
    return std::all_of(values.begin(), values.end(), [&](const RealValue& real) {
        return WriteReal(registry, key, real.name, real.value);
    });
}

bool WriteOptions(const Registry& registry, const Options& options) {
    return WriteNumbers(registry, "",
                        {{"Axex", options.Axex},
                         {"ColorText", options.ColorText},
                         {"Diff", options.Diff},
                         {"Coord", options.Coord},
                         {"Setka", options.Setka},
                         {"Label", options.Label},
                         {"Screen", options.Screen},
                         {"TextSize", options.TextSize},
                         {"InterpolationType", options.InterpolationType},
                         {"Wight", options.Wight},
                         {"MaxAngle", TruncateToInt32(options.MaxAngle)},
                         {"Resolution", options.Resolution}});
}

// KEEP: written as `Xmin`, read as `xmin`.
bool WriteView(const Registry& registry, const ViewWindow& view, const Options& options) {
    return WriteReals(registry, "",
                      {{"Xmin", view.Xmin},
                       {"Xmax", view.Xmax},
                       {"Ymin", view.Ymin},
                       {"Ymax", view.Ymax},
                       {"Xfactor", view.Xfactor},
                       {"Yfactor", view.Yfactor},
                       {"MinParam", options.MinParam},
                       {"MaxParam", options.MaxParam}});
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
    return WriteNumbers(registry, key, {{"color", entry.color}, {"type", entry.type}}) &&
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
    WriteTogether(registry, [&] { return WriteMissing(registry, workspace); });
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

std::int32_t StoreOption(const Registry& registry, std::string_view name, std::int32_t value) {
    return registry.open("") && registry.writeNumber("", name, value) ? 1 : 0;
}

}  // namespace kalvex
