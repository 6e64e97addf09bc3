// A root of a continuous function inside a bracket by the Illinois variant
// of regula falsi (Dowell & Jarratt 1971): superlinear, and never leaves the
// bracket.
#pragma once

#include <cmath>

namespace solvane::engine {

// f(lo) and f(hi) must differ in sign; returns x with |step| < tol or
// f(x) == 0. With no change of sign, the end nearer zero.
template <class F>
double BracketedRoot(F&& f, double lo, double hi, double tol, int maxIter = 60) {
    double flo = f(lo), fhi = f(hi);
    if (flo == 0) return lo;
    if (fhi == 0) return hi;
    if ((flo > 0) == (fhi > 0)) return std::fabs(flo) < std::fabs(fhi) ? lo : hi;
    int side = 0;
    double x = lo;
    for (int i = 0; i < maxIter && std::fabs(hi - lo) > tol; ++i) {
        x = (lo * fhi - hi * flo) / (fhi - flo);
        const double fx = f(x);
        if (fx == 0) return x;
        if ((fx > 0) == (fhi > 0)) {
            hi = x, fhi = fx;
            if (side == 1) flo *= 0.5;
            side = 1;
        } else {
            lo = x, flo = fx;
            if (side == -1) fhi *= 0.5;
            side = -1;
        }
        if (std::fabs(fx) < 1e-14) break;
    }
    return x;
}

}  // namespace solvane::engine
