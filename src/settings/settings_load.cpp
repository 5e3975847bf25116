// Each kind of value has a reader with a default, so only the damaged fields of a store get their
// defaults. The message about a damaged store follows two rules. A key that cannot be opened and a
// number of a function key show it and set the flag that suppresses it from then on. A value of the
// main key and a real parameter of a function show it too, but do not set the flag. An option that
// earlier versions did not have may be missing without a message.
#include <cmath>

#include "numbers/decimal.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"
#include "settings/settings.h"
#include "settings/settings_names.h"
#include "workspace/defaults.h"
#include "workspace/option_rows.h"

namespace kalvex {
namespace {

struct Loader {
    const Registry& registry;
    bool& errorShown;
    const ShowMessage& show;
    std::string key = {};
};

// KEEP: without the flag set, every further missing value of the main key shows its own box.
void ReportValue(Loader& loader) {
    if (loader.errorShown) return;
    loader.show(BoxOf(StringId::RegistryErrorTitle, Text(StringId::RegistryErrorText),
                      MessageIcon::Information));
}

void ReportOnce(Loader& loader) {
    ReportValue(loader);
    loader.errorShown = true;
}

bool OpenKey(Loader& loader, std::string key) {
    loader.key = std::move(key);
    if (loader.registry.open(loader.key)) return true;
    ReportOnce(loader);
    return false;
}

std::int32_t OptionNumber(Loader& loader, const OptionRow& row, std::int32_t fallback) {
    const auto value = loader.registry.readNumber(loader.key, row.name);
    if (!value && !row.mayBeMissing) ReportValue(loader);
    return value.value_or(fallback);
}

std::int32_t SlotNumber(Loader& loader, std::string_view name, std::int32_t fallback) {
    const auto value = loader.registry.readNumber(loader.key, name);
    if (!value) ReportOnce(loader);
    return value.value_or(fallback);
}

/// A stored text that is not a number gives 0, not the default.
double Real(Loader& loader, std::string_view name, double fallback) {
    const auto text = loader.registry.readText(loader.key, name);
    if (!text) ReportValue(loader);
    return text ? ParseDecimalPrefix(*text).value : fallback;
}

/// A stored number as the option takes it.
std::int32_t AsLoaded(OptionKind kind, std::int32_t number) {
    switch (kind) {
        case OptionKind::Flag:
            return number != 0 ? 1 : 0;
        case OptionKind::GridKind:
            return number >= 0 && number <= 2 ? number : 1;
        case OptionKind::Number:
        case OptionKind::WriteOnly:
        case OptionKind::Range:
            break;
    }
    return number;
}

void LoadOptions(Loader& loader, Options& options) {
    for (const OptionRow& row : kOptionRows) {
        // KEEP: `Resolution` is stored but never loaded; it has its built-in value at each start.
        if (row.kind == OptionKind::WriteOnly || row.kind == OptionKind::Range) continue;
        const std::int32_t number = OptionNumber(loader, row, StoredNumberOf(options, row));
        SetValue(options, row, AsLoaded(row.kind, number));
    }
}

void RepairBounds(double& low, double& high) {
    if (std::isfinite(low) && std::isfinite(high) && low != high) return;
    low = -10.0;
    high = 10.0;
}

/// A range that the Options dialog would refuse becomes the default: nothing can be drawn with it.
void RepairRange(Options& options) {
    const bool finite = std::isfinite(options.MinParam) && std::isfinite(options.MaxParam);
    if (finite && options.MinParam < options.MaxParam) return;
    options.MinParam = Options{}.MinParam;
    options.MaxParam = Options{}.MaxParam;
}

void LoadView(Loader& loader, ViewWindow& view, Options& options) {
    for (const ViewValue& value : kViewValues)
        view.*value.field = Real(loader, value.loadedAs, view.*value.field);
    for (const OptionRow& row : kOptionRows) {
        if (row.kind != OptionKind::Range) continue;
        SetValue(options, row, Real(loader, row.name, ValueOf(options, row)));
    }
    RepairBounds(view.Xmin, view.Xmax);
    RepairBounds(view.Ymin, view.Ymax);
    RepairRange(options);
}

void LoadEntry(Loader& loader, FunctionEntry& entry) {
    entry.color = SlotNumber(loader, "Color", entry.color);  // KEEP: written as `color`
    entry.type = static_cast<EquationType>(
        SlotNumber(loader, "type", static_cast<std::int32_t>(entry.type)));
    ApproxParameters& method = entry.method;
    for (const auto& whole : kWholeParameters)
        method.*whole.field = SlotNumber(loader, whole.name, method.*whole.field);
    for (const auto& real : kRealParameters)
        method.*real.field = Real(loader, real.name, method.*real.field);
}

void SetDefaults(FunctionEntry& entry, int slot) {
    const FunctionEntry defaults = DefaultEntry(slot);
    entry.type = defaults.type;
    entry.color = defaults.color;
    entry.method = defaults.method;
}

}  // namespace

void LoadFunctionTexts(const Registry& registry, Workspace& workspace, const ShowMessage& show) {
    Loader loader{registry, workspace.registryErrorShown, show};
    for (int slot = 0; slot < kSlotCount; ++slot) {
        const auto index = static_cast<std::size_t>(slot);
        std::u16string line;
        // When the key can be opened but the line cannot be read, the line is empty and no message
        // is shown.
        if (OpenKey(loader, SlotKey(slot))) {
            line = registry.readText(loader.key, "equ").value_or(u"").substr(0, kLineUnits);
        }
        workspace.lines[index] = line.substr(0, line.find(u'\0'));
        workspace.functions[index].selected = 0;
    }
}

void LoadFunctionSettings(const Registry& registry, Workspace& workspace, const ShowMessage& show) {
    Loader loader{registry, workspace.registryErrorShown, show};
    for (int slot = 0; slot < kSlotCount; ++slot) {
        FunctionEntry& entry = workspace.functions[static_cast<std::size_t>(slot)];
        SetDefaults(entry, slot);
        if (OpenKey(loader, SlotKey(slot))) LoadEntry(loader, entry);
    }
}

void LoadSettings(const Registry& registry, Workspace& workspace, const ShowMessage& show) {
    Loader loader{registry, workspace.registryErrorShown, show};
    workspace.options = Options{};
    workspace.view = ViewWindow{};
    if (!OpenKey(loader, "")) return;
    LoadOptions(loader, workspace.options);
    LoadView(loader, workspace.view, workspace.options);
}

}  // namespace kalvex
