// The visible rectangle of the plane and its mapping to pixels.
#pragma once

namespace kalvex {

/// LayoutViewport computes the first four and the last two fields from the others.
struct ViewWindow {
    double OriginX = 0.0;  ///< logical pixel column of world x = 0, fractional
    double OriginY = 0.0;  ///< logical pixel row of world y = 0
    double ScaleX = 0.0;   ///< pixels per world unit
    double ScaleY = 0.0;
    double Xmin = -10.0;
    double Xmax = 10.0;
    double Ymin = -10.0;
    double Ymax = 10.0;
    double Xfactor = 2.0;
    double Yfactor = 2.0;
    double StepX = 0.0;  ///< a tenth of the world width
    double StepY = 0.0;
};

}  // namespace kalvex
