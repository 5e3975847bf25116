// One small reader per kind of value, each with its default, so that a damaged store costs only
// the damaged fields. Two rules decide on the message: a failed key or function number is reported
// once per run, a failed value of the main key or a real parameter of a function each time until
// then.
#include <cmath>

#include "numbers/decimal.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"
#include "settings/settings.h"
#include "settings/settings_names.h"
#include "workspace/defaults.h"

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

std::int32_t MainNumber(Loader& loader, std::string_view name, std::int32_t fallback) {
    const auto value = loader.registry.readNumber(loader.key, name);
    if (!value) ReportValue(loader);
    return value.value_or(fallback);
}

std::uint8_t MainFlag(Loader& loader, std::string_view name, std::uint8_t fallback) {
    return MainNumber(loader, name, fallback) != 0 ? 1 : 0;
}

std::int32_t SlotNumber(Loader& loader, std::string_view name, std::int32_t fallback) {
    const auto value = loader.registry.readNumber(loader.key, name);
    if (!value) ReportOnce(loader);
    return value.value_or(fallback);
}

/// A stored text that is not a number is 0, not the default.
double Real(Loader& loader, std::string_view name, double fallback) {
    const auto text = loader.registry.readText(loader.key, name);
    if (!text) ReportValue(loader);
    return text ? ParseDecimalPrefix(*text).value : fallback;
}

void LoadOptions(Loader& loader, Options& options) {
    options.Axex = MainFlag(loader, "Axex", options.Axex);
    options.ColorText = MainFlag(loader, "ColorText", options.ColorText);
    options.Diff = MainFlag(loader, "Diff", options.Diff);
    options.Coord = MainFlag(loader, "Coord", options.Coord);
    const std::int32_t grid = MainNumber(loader, "Setka", options.Setka);
    options.Setka = grid >= 0 && grid <= 2 ? static_cast<std::uint8_t>(grid) : std::uint8_t{1};
    options.Label = MainFlag(loader, "Label", options.Label);
    options.Screen = MainNumber(loader, "Screen", options.Screen);
    options.TextSize = MainNumber(loader, "TextSize", options.TextSize);
    options.InterpolationType = MainNumber(loader, "InterpolationType", options.InterpolationType);
    options.Wight = MainNumber(loader, "Wight", options.Wight);
    options.MaxAngle = MainNumber(loader, "MaxAngle", 1);
    // KEEP: `Resolution` is written but never read; it returns to its built-in value at each start.
}

void RepairBounds(double& low, double& high) {
    if (std::isfinite(low) && std::isfinite(high) && low != high) return;
    low = -10.0;
    high = 10.0;
}

/// A range that draws nothing, and that the Options would refuse to save, is none.
void RepairRange(Options& options) {
    const bool finite = std::isfinite(options.MinParam) && std::isfinite(options.MaxParam);
    if (finite && options.MinParam < options.MaxParam) return;
    options.MinParam = Options{}.MinParam;
    options.MaxParam = Options{}.MaxParam;
}

void LoadView(Loader& loader, ViewWindow& view, Options& options) {
    view.Xmin = Real(loader, "xmin", view.Xmin);  // KEEP: read as `xmin`, written as `Xmin`
    view.Xmax = Real(loader, "Xmax", view.Xmax);
    view.Ymin = Real(loader, "Ymin", view.Ymin);
    view.Ymax = Real(loader, "Ymax", view.Ymax);
    view.Xfactor = Real(loader, "Xfactor", view.Xfactor);
    view.Yfactor = Real(loader, "Yfactor", view.Yfactor);
    options.MinParam = Real(loader, "MinParam", options.MinParam);
    options.MaxParam = Real(loader, "MaxParam", options.MaxParam);
    RepairBounds(view.Xmin, view.Xmax);
    RepairBounds(view.Ymin, view.Ymax);
    RepairRange(options);
}

void LoadEntry(Loader& loader, FunctionEntry& entry) {
    entry.color = SlotNumber(loader, "Color", entry.color);  // KEEP: written as `color`
    entry.type = SlotNumber(loader, "type", entry.type);
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
        // A line that cannot be read in a key that opens is empty without a message.
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
