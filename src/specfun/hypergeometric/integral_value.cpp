// Which integral serves which parameters. Where Euler's does, it is taken for the parameters
// themselves. The others want a positive argument, and for c below 0 a form with c-a-b below 0.
#include "specfun/hypergeometric/integral_value.h"

#include "specfun/hypergeometric/connection.h"
#include "specfun/hypergeometric/euler_integral.h"

namespace kalvex::specfun {

Value ByIntegral(const std::array<Form, 4>& forms, double x) {
    constexpr double kBeyondRange = 800;  // e-foldings: 710 of the range and 90, chosen, to spare
    const HypergeometricParameters& p = forms[0].p;
    const DoubleDouble w = TwoSum(1, -x);
    if (HasEulerIntegral(p)) {
        return ValueOf(forms[0], ByEulerIntegral(p, {x, 0}, w, kBeyondRange), x);
    }
    const std::size_t first = x > 0 ? 0 : 2;
    const Form& form = forms[first];
    const DoubleDouble z = ArgumentOf(form, x);
    const DoubleDouble rest = form.pfaff ? 1 / w : w;
    if (IsNegativeInteger(p.c)) return ValueOf(form, ByReflection(form.p, z, rest), x);
    const auto byOne = [&] { return ValueOf(form, ByOneIntegral(form.p, z, rest), x); };
    if (p.c.high > 0) return byOne();
    const bool rises = (form.p.c - form.p.a - form.p.b).high > 0;
    const Form& falling = forms[first + (rises ? 1 : 0)];
    const auto byTwo = [&] { return ValueOf(falling, ByConnection(falling.p, z, rest), x); };
    const bool isTwoFirst = ConnectsEulerIntegrals(falling.p);
    Value best = isTwoFirst ? byTwo() : byOne();
    if (best.loss >= kGoodEnough) KeepBetter(best, isTwoFirst ? byOne() : byTwo());
    return best;
}

}  // namespace kalvex::specfun
