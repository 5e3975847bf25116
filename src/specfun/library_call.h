// Calls of the numeric library with its error object translated into ours.
#pragma once

#include <ap.h>
#include <specialfunctions.h>

#include "specfun/specfun.h"

namespace kalvex::specfun {

template <typename Call>
double FromLibrary(const Call& call) {
    try {
        return call();
    } catch (const alglib::ap_error& error) {
        throw ap::ap_error{error.msg};
    }
}

}  // namespace kalvex::specfun
