// The order of the records is the order of painting: background layers, curves in slot order,
// names. Each plotted function places the trace cursor, so the last one decides where it is.
#include "graph/graph.h"

#include <algorithm>
#include <utility>

#include "graph/axes.h"
#include "graph/coordinates.h"
#include "graph/curves.h"
#include "graph/fine_grid.h"
#include "graph/grid.h"
#include "graph/implicit.h"
#include "graph/legend.h"
#include "graph/trace.h"
#include "numbers/truncate.h"

namespace kalvex {
namespace {

/// Notes the origin of the records that a step of the drawing adds.
template <typename Step>
void DrawAs(const RecordOrigin& origin, DrawList& list, const Step& step) {
    const std::size_t first = list.records.size();
    step();
    for (std::size_t i = first; i < list.records.size(); ++i)
        std::visit([&origin](auto& record) { record.origin = origin; }, list.records[i]);
}

void DrawBackground(const Viewport& viewport, const Options& options, const MeasureText& measure,
                    DrawList& list) {
    // The lines of the fine grid stand at the numbers, even when the numbers are not shown.
    const bool fine = options.FineGrid != 0 && options.Setka == 1;
    NumberLayout layout;
    if (options.Coord != 0 || fine) layout = LayoutNumbers(viewport, measure, fine);
    DrawAs({DrawLayer::Grid}, list, [&] {
        if (fine) {
            DrawFineGrid(viewport, layout.stepX, layout.stepY, list);
        } else {
            DrawGrid(viewport, options.Setka, list);
        }
    });
    if (options.Coord == 0) layout = {};
    DrawAs({DrawLayer::Axes}, list, [&] {
        if (options.Axex != 0) DrawAxes(viewport, list, layout.ticks);
    });
    DrawAs({DrawLayer::Numbers}, list, [&] {
        for (TextRecord& number : layout.numbers)
            list.records.emplace_back(std::move(number));
    });
}

/// Puts the trace cursor on the middle sample.
void PlaceCursor(GraphState& state, const FunctionEntry& entry) {
    if (state.mode != GraphMode::Normal) return;
    const std::size_t middle = entry.samples.size() / 2;
    state.trace.index = static_cast<std::int32_t>(middle);
    state.trace.pixel = {};
    if (entry.samples.empty()) return;
    const CurveSample& sample = entry.samples[middle];
    state.trace.pixel = {sample.column, sample.row};
}

void PlotImplicit(GraphState& state, FunctionEntry& entry, const DrawProgress& progress,
                  Interruption* interruption, DrawList& list) {
    entry.samples.clear();
    PixelRunsRecord pixels = ImplicitPixels(entry.compiled[0], state.viewport, ColorOf(entry.color),
                                            progress, interruption, state.contours);
    if (!pixels.runs.empty()) list.records.emplace_back(std::move(pixels));
    if (state.mode != GraphMode::Normal) return;
    // KEEP: the width is used for both coordinates.
    state.trace.pixel = {state.viewport.ClientWidth / 2, state.viewport.ClientWidth / 2};
}

/// Turns the share of the work that is done (0 to 1) into stretches of the progress bar.
WorkProgress AsStretches(const DrawProgress& progress, std::int32_t width, const Rgb& color) {
    if (!progress) return {};
    return [&progress, width, color, next = 0](double done) mutable {
        const std::int32_t end = TruncateToInt32(done * width);
        const std::int32_t first = std::exchange(next, std::max(next, end));
        return progress({first, next - 1, color});
    };
}

void PlotFile(GraphState& state, FunctionEntry& entry, int slot, const Pen& pen,
              const CurveWork& work, DrawList& list) {
    Failure failure =
        plotFileFunction(entry, state.viewport, pen, work.progress, list, work.interruption);
    if (failure) state.approxFailures.push_back({slot, *std::move(failure)});
    PlaceCursor(state, entry);
}

void PlotFunction(GraphState& state, FunctionEntry& entry, int slot, const Options& options,
                  const DrawProgress& progress, Interruption* interruption, DrawList& list) {
    const Viewport& viewport = state.viewport;
    const Pen pen{ColorOf(entry.color), PenWidthOf(options)};
    const CurveWork work{AsStretches(progress, viewport.ClientWidth, pen.color), interruption};
    switch (entry.type) {
        case EquationType::Polar:
            PlotPolar(entry, viewport, options.MaxAngle, pen, list, work);
            break;
        case EquationType::Decart:
            PlotDecart(entry, viewport, pen, list, work);
            PlaceCursor(state, entry);
            break;
        case EquationType::Parametric:
            PlotParametric(entry, viewport, options.MinParam, options.MaxParam, pen, list, work);
            PlaceCursor(state, entry);
            break;
        case EquationType::Implicit:
            PlotImplicit(state, entry, progress, interruption, list);
            break;
        case EquationType::File:
            PlotFile(state, entry, slot, pen, work, list);
            break;
        default:
            break;
    }
}

/// The progress function of a drawing; a false answer stops all of the drawing.
DrawProgress StoppingAll(const DrawProgress& progress, Interruption& interruption) {
    if (!progress) return {};
    return [&progress, &interruption](const ProgressStretch& stretch) {
        if (!interruption.stopped) interruption.stopped = !progress(stretch);
        return !interruption.stopped;
    };
}

/// Draws the selected functions until all are drawn or the drawing is stopped.
void PlotFunctions(GraphState& state, FunctionList& functions, const Options& options,
                   const DrawProgress& given, Interruption& interruption, DrawList& list) {
    const DrawProgress progress = StoppingAll(given, interruption);
    for (int slot = 0; slot < kSlotCount; ++slot) {
        FunctionEntry& entry = functions[static_cast<std::size_t>(slot)];
        if (!IsDrawn(entry)) continue;
        if (!IsStopped(&interruption)) {
            DrawAs({DrawLayer::Curve, slot}, list, [&] {
                PlotFunction(state, entry, slot, options, progress, &interruption, list);
            });
        }
        // A reader of the samples must not take a part of them for the whole curve.
        if (interruption.stopped) entry.samples.clear();
    }
    state.incomplete = interruption.stopped;
}

}  // namespace

DrawList DrawGraph(GraphState& state, FunctionList& functions, const Options& options,
                   const MeasureText& measure, const DrawProgress& progress,
                   Interruption* interruption) {
    Viewport& viewport = state.viewport;
    LayoutViewport(viewport);
    DrawList list;
    list.width = viewport.ClientWidth;
    list.height = viewport.ClientHeight;
    DrawBackground(viewport, options, measure, list);
    state.approxFailures.clear();
    Interruption never;
    PlotFunctions(state, functions, options, progress, interruption ? *interruption : never, list);
    for (int slot = 0; slot < kSlotCount && !state.trace.function; ++slot) {
        const FunctionEntry& entry = functions[static_cast<std::size_t>(slot)];
        if (IsDrawn(entry) && entry.type != EquationType::Implicit) state.trace.function = slot;
    }
    if (state.mode == GraphMode::Trace) RefreshTraceCursor(state, functions);
    if (options.Label != 0) DrawLegend(viewport, functions, options, measure, list);
    return list;
}

}  // namespace kalvex
