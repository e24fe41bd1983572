// Polynomials in time, the form of every mean argument and secular term.
#pragma once

#include <array>
#include <cstddef>

namespace timetool::sky {

// c[0] + c[1] t + c[2] t^2 + ..., by Horner's rule.
template <std::size_t N>
constexpr double Polynomial(const std::array<double, N>& c, double t) noexcept {
    double sum = 0.0;
    for (std::size_t i = N; i-- > 0;) sum = sum * t + c[i];
    return sum;
}

}  // namespace timetool::sky
