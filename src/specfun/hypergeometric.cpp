// The functions that have no routine. Their points stay undefined on every curve.
#include "specfun/specfun.h"

namespace kalvex::specfun {

double Hypergeometric2F1(double, double, double, double) {
    throw ap::ap_error{"Hypergeometric2F1: no routine"};
}

}  // namespace kalvex::specfun
