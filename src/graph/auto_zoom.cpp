// First the extremes of each function are found, then those of all functions. Some rules are odd;
// they are kept because users know the windows that they give.
#include "graph/auto_zoom.h"

#include <cmath>
#include <optional>

#include "expr/eval_error.h"
#include "graph/legend.h"
#include "resources/message_boxes.h"
#include "resources/strings.h"

namespace kalvex {
namespace {

constexpr double kNoMaximum = -1e30;
constexpr double kTooLarge = 1e29;  // a maximum does not grow to this or beyond
constexpr double kLimit = 131.0;

struct Extremes {
    double minimum = 0.0;
    double maximum = kNoMaximum;
};

/// The value of a sample. Not-a-number counts as undefined.
double ValueOf(const CurveSample& sample) {
    return std::isnan(sample.y) ? UndefinedValue : sample.y;
}

/// The extremes of one function; nothing when no sample has a value.
std::optional<Extremes> ExtremesOf(const SampleCache& samples) {
    Extremes found;
    for (const CurveSample& sample : samples) {
        found.maximum = ValueOf(sample);
        if (found.maximum != UndefinedValue) break;
    }
    if (samples.empty() || found.maximum == UndefinedValue) return std::nullopt;
    // The first sample, defined or not: an undefined one gives way to every value below 1e30.
    found.minimum = ValueOf(samples.front());
    for (std::size_t i = 1; i < samples.size(); ++i) {
        const double value = ValueOf(samples[i]);
        if (found.maximum < value && value < kTooLarge) found.maximum = value;
        if (found.minimum > value) found.minimum = value;
    }
    return found;
}

bool IsBeyondLimit(const Extremes& one) {
    return one.minimum < -kLimit || one.maximum > kLimit;
}

void Widen(Extremes& all, const Extremes& one) {
    if (one.minimum < all.minimum && one.minimum > -kLimit) all.minimum = one.minimum;
    if (one.maximum > all.maximum && one.maximum < kLimit) all.maximum = one.maximum;
}

bool Refuse(StringId reason, const ShowMessage& show) {
    show(ErrorBox(Text(reason)));
    return false;
}

}  // namespace

bool AutoZoom(Viewport& viewport, const FunctionList& functions, const ShowMessage& show) {
    std::optional<Extremes> all;
    for (const FunctionEntry& entry : functions) {
        if (!IsDrawn(entry)) continue;
        const std::optional<Extremes> one = ExtremesOf(entry.samples);
        if (!one) continue;
        if (IsBeyondLimit(*one)) return Refuse(StringId::AutoTooBig, show);
        if (!all) all = one;
        Widen(*all, *one);
    }
    if (!all) return Refuse(StringId::AutoUndetermined, show);
    const double low = all->minimum;
    const double high = all->maximum;
    // KEEP: the factor is applied whatever the sign, so a positive minimum and a negative maximum
    // move inward.
    viewport.view.Ymin = low != 0.0 ? low * 1.1 : high * -0.1;
    viewport.view.Ymax = high != 0.0 ? high * 1.1 : low * -0.1;
    return true;
}

}  // namespace kalvex
