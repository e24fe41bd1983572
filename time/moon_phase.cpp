#include "time/moon_phase.h"

#include "time/truncation.h"

namespace {

// The two lunation lengths differ in the tenth decimal; stored results depend
// on both.
constexpr double kLunationForCount = 29.5305888531;
constexpr double kLunationForPlacement = 29.5305888611;
constexpr double kFirstNewMoon = 5.597661;  // days after 2000-01-01 00:00
constexpr double kQuadraticTerm = 1.02026e-10;

}  // namespace

double MeanNewMoonOffset(double lunation) noexcept {
    return (lunation * kLunationForPlacement + kFirstNewMoon) + (lunation * kQuadraticTerm) * lunation;
}

double MoonPhaseDegrees(double d) noexcept {
    // k + 1 and k - 1 are formed in double precision, exact for every 32-bit k.
    const double k = static_cast<double>(TruncateToInt32(d / kLunationForCount));
    double phase;
    if (d > 0.0) {
        const double start = MeanNewMoonOffset(k);
        phase = (d - start) / (MeanNewMoonOffset(k + 1.0) - start) * 360.0;
    } else {
        const double previous = MeanNewMoonOffset(k - 1.0);
        phase = (previous - d) / (previous - MeanNewMoonOffset(k)) * 360.0;
    }
    if (phase < 0.0) phase += 360.0;
    return phase;
}
