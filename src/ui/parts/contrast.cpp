// The luminance weights and the linearising curve are those of sRGB (IEC 61966-2-1), the ratio
// (L1 + 0.05) / (L2 + 0.05). The search walks in 32 equal steps: a finer one cannot be seen.
#include "ui/parts/contrast.h"

#include <algorithm>
#include <cmath>

namespace kalvex {
namespace {

double Linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color) {
    return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) +
           0.0722 * Linear(color.blueF());
}

int Blend(int from, int to, int step) {
    return from + (to - from) * step / 32;
}

}  // namespace

double ContrastRatio(const QColor& first, const QColor& second) {
    const double a = Luminance(first);
    const double b = Luminance(second);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

bool IsDark(const QColor& ground) {
    return ContrastRatio(Qt::white, ground) > ContrastRatio(Qt::black, ground);
}

QColor ReadableColor(const QColor& color, const QColor& background, double ratio) {
    const QColor end = IsDark(background) ? Qt::white : Qt::black;
    for (int step = 0; step < 32; ++step) {
        const QColor candidate(Blend(color.red(), end.red(), step),
                               Blend(color.green(), end.green(), step),
                               Blend(color.blue(), end.blue(), step));
        if (ContrastRatio(candidate, background) >= ratio) return candidate;
    }
    return end;
}

}  // namespace kalvex
