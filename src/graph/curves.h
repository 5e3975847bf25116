// Sampling of one function into its sample cache, and the lines through the samples.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "expr/eval_code.h"
#include "graph/curve_work.h"
#include "graph/draw_list.h"
#include "graph/viewport.h"
#include "interp/diagnostic.h"
#include "workspace/function_entry.h"

namespace kalvex {

/// Samples first .. first + count - 1 of a cache.
struct SampleRun {
    std::size_t first = 0;
    std::size_t count = 0;
    friend bool operator==(const SampleRun&, const SampleRun&) = default;
};

/// The unbroken runs of a curve y(x), those of fewer than two samples left out. A run ends where
/// the row jumps by more than five client heights and at an unplotted sample (pixel (0, 0)); the
/// last sample before a break belongs to no run.
[[nodiscard]] std::vector<SampleRun> PolylineRuns(std::span<const CurveSample> samples,
                                                  std::int32_t clientHeight);

/// Draws the runs of a sampled curve y(x). A piece with an end whose position is not-a-number is
/// left out: the conversion to pixels gives such a position an arbitrary pixel, so the piece would
/// show a line that the function does not have.
void DrawRuns(std::span<const CurveSample> samples, const Viewport& viewport, const Pen& pen,
              DrawList& list);

/// Draws the line from sample i to sample i + 1 for every i with `joined[i]`. Lines without a
/// length and lines with an end whose position is not-a-number are left out, and so is a curve all
/// of whose lines lie within a pixel each.
void DrawJoined(std::span<const CurveSample> samples, std::span<const std::uint8_t> joined,
                const Viewport& viewport, const Pen& pen, DrawList& list);

/// Whether the pixel position of a world point is a number.
[[nodiscard]] bool HasPosition(const ViewWindow& view, double x, double y);

/// y = f(x): one sample per pixel column. Plotted samples have a defined value and a defined right
/// neighbour; the others have pixel (0, 0). When the work is stopped, the samples end there, as
/// they do for the two types below.
[[nodiscard]] SampleCache SampleDecart(const CompiledExpression& expression,
                                       const Viewport& viewport, const CurveWork& work = {});

/// Refills the entry's cache and draws it.
void PlotDecart(FunctionEntry& entry, const Viewport& viewport, const Pen& pen, DrawList& list,
                const CurveWork& work = {});

/// r = f(angle) in steps of two degrees; `maxAngle` in turns, bounded to 1000. The last sample is
/// unplotted but has its world point, angle and status.
void PlotPolar(FunctionEntry& entry, const Viewport& viewport, double maxAngle, const Pen& pen,
               DrawList& list, const CurveWork& work = {});

/// x = X(t), y = Y(t): as many samples as the picture is wide. The last one as for Polar. The
/// status is X's code or, when that is 0, Y's.
void PlotParametric(FunctionEntry& entry, const Viewport& viewport, double minParam,
                    double maxParam, const Pen& pen, DrawList& list, const CurveWork& work = {});

/// Status of a File sample whose value is undefined or not finite.
inline constexpr auto kNoValueStatus = static_cast<std::int32_t>(EvalCode::NoValue);

/// A File line: its points as circles of radius 3, then its method's curve, one sample per pixel
/// column. Sets the pixels of the points and refills the cache. A circle off the picture, or on a
/// pixel that has one, is left out. Plotted samples have a drawable value and a drawable right
/// neighbour; drawable is a value that is not undefined and below 2^31 in magnitude. Fails when the
/// method cannot be used with these points: all samples are undefined then. Long work tells its
/// progress and is interrupted; when it is stopped, what has no value yet stays undefined.
[[nodiscard]] Failure plotFileFunction(FunctionEntry& entry, const Viewport& viewport,
                                       const Pen& pen, const WorkProgress& progress, DrawList& list,
                                       Interruption* interruption = nullptr);

}  // namespace kalvex
