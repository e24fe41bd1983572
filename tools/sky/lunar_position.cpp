#include "lunar_position.h"

#include <array>
#include <cmath>
#include <cstddef>

#include "angles.h"
#include "lunar_terms.h"
#include "polynomial.h"

namespace timetool::sky {
namespace {

// Degrees against centuries.
constexpr std::array<double, 5> kMeanLongitude{218.3164477, 481267.88123421, -0.0015786, 1.0 / 538841.0,
                                               -1.0 / 65194000.0};
constexpr std::array<double, 5> kMeanElongation{297.8501921, 445267.1114034, -0.0018819, 1.0 / 545868.0,
                                                -1.0 / 113065000.0};
constexpr std::array<double, 4> kSunMeanAnomaly{357.5291092, 35999.0502909, -0.0001536, 1.0 / 24490000.0};
constexpr std::array<double, 5> kMoonMeanAnomaly{134.9633964, 477198.8675055, 0.0087414, 1.0 / 69699.0,
                                                 -1.0 / 14712000.0};
constexpr std::array<double, 5> kArgumentOfLatitude{93.2720950, 483202.0175233, -0.0036539, -1.0 / 3526000.0,
                                                    1.0 / 863310000.0};
// Venus, Jupiter and the flattening of the Earth act through these.
constexpr std::array<double, 2> kVenusArgument{119.75, 131.849};
constexpr std::array<double, 2> kJupiterArgument{53.09, 479264.290};
constexpr std::array<double, 2> kFlatteningArgument{313.45, 481266.484};
// The shrinking eccentricity of the Earth's orbit scales each term in M.
constexpr std::array<double, 3> kEccentricityFactor{1.0, -0.002516, -0.0000074};

constexpr double kMeanDistance = 385000.56;  // km

// A rotation by an angle, kept as its cosine and sine: multiples and sums
// of the four arguments then cost multiplications instead of sines.
struct Rotation {
    double cos = 1.0;
    double sin = 0.0;

    constexpr Rotation operator*(Rotation r) const noexcept {
        return {cos * r.cos - sin * r.sin, sin * r.cos + cos * r.sin};
    }
    constexpr Rotation Reversed() const noexcept { return {cos, -sin}; }
};

// The rotations by -N, ..., N times an angle, at index k + N.
template <std::size_t N>
std::array<Rotation, 2 * N + 1> Multiples(double degrees) noexcept {
    std::array<Rotation, 2 * N + 1> turns{};
    const double radians = degrees * kRadiansPerDegree;
    const Rotation once{std::cos(radians), std::sin(radians)};
    for (std::size_t k = 1; k <= N; ++k) {
        turns[N + k] = turns[N + k - 1] * once;
        turns[N - k] = turns[N + k].Reversed();
    }
    return turns;
}

// Where a multiple of [-most, most] sits in its table of rotations.
constexpr std::size_t Index(std::ptrdiff_t multiple, std::ptrdiff_t most) noexcept {
    return static_cast<std::size_t>(multiple + most);
}

struct Arguments {
    double t;
    double meanLongitude;
    double moonAnomalyDegrees;
    double latitudeAngleDegrees;
    // D and M together, the pairs the terms use, each scaled by the
    // eccentricity factor once for every multiple of M.
    std::array<std::array<Rotation, 5>, 5> elongationAndSun;  // [D 0 to 4][M -2 to 2]
    std::array<Rotation, 9> moonAnomaly;                      // M' -4 to 4
    std::array<Rotation, 7> latitudeAngle;                    // F -3 to 3
};

Arguments ArgumentsAt(double t) noexcept {
    Arguments a{};
    a.t = t;
    a.meanLongitude = Polynomial(kMeanLongitude, t);
    a.moonAnomalyDegrees = Polynomial(kMoonMeanAnomaly, t);
    a.latitudeAngleDegrees = Polynomial(kArgumentOfLatitude, t);
    a.moonAnomaly = Multiples<4>(a.moonAnomalyDegrees);
    a.latitudeAngle = Multiples<3>(a.latitudeAngleDegrees);

    const std::array<Rotation, 9> elongation = Multiples<4>(Polynomial(kMeanElongation, t));
    std::array<Rotation, 5> sun = Multiples<2>(Polynomial(kSunMeanAnomaly, t));
    const double e = Polynomial(kEccentricityFactor, t);
    for (std::size_t m = 0; m < sun.size(); ++m) {
        const double factor = m == 2 ? 1.0 : (m == 1 || m == 3 ? e : e * e);  // E^|M|
        sun[m] = {sun[m].cos * factor, sun[m].sin * factor};
    }
    for (std::size_t d = 0; d < 5; ++d) {
        for (std::size_t m = 0; m < sun.size(); ++m) a.elongationAndSun[d][m] = elongation[4 + d] * sun[m];
    }
    return a;
}

// The rotation by a term's argument, scaled by the eccentricity factor of
// its M.
Rotation ScaledTerm(const Arguments& a, const LunarTerm& term) noexcept {
    return a.elongationAndSun[static_cast<std::size_t>(term.elongation)][Index(term.sunAnomaly, 2)] *
           a.moonAnomaly[Index(term.moonAnomaly, 4)] * a.latitudeAngle[Index(term.latitudeAngle, 3)];
}

struct LongitudeAndDistance {
    double longitude;  // degrees, [0, 360)
    double distance;   // km
};

LongitudeAndDistance LongitudeAndDistanceAt(const Arguments& a) noexcept {
    // Millionths of a degree and metres.
    double longitudeSum = 3958.0 * SinDegrees(Polynomial(kVenusArgument, a.t)) +
                          1962.0 * SinDegrees(a.meanLongitude - a.latitudeAngleDegrees) +
                          318.0 * SinDegrees(Polynomial(kJupiterArgument, a.t));
    double distanceSum = 0.0;
    for (const LunarTerm& term : kLongitudeDistanceTerms) {
        const Rotation r = ScaledTerm(a, term);
        longitudeSum += term.sineAmplitude * r.sin;
        distanceSum += term.cosineAmplitude * r.cos;
    }
    return {OneTurn(a.meanLongitude + longitudeSum * 1e-6), kMeanDistance + distanceSum / 1000.0};
}

}  // namespace

LunarPosition LunarPositionAt(double terrestrialCenturies) noexcept {
    const Arguments a = ArgumentsAt(terrestrialCenturies);
    const LongitudeAndDistance where = LongitudeAndDistanceAt(a);

    const double venus = Polynomial(kVenusArgument, a.t);
    double latitudeSum =
        -2235.0 * SinDegrees(a.meanLongitude) + 382.0 * SinDegrees(Polynomial(kFlatteningArgument, a.t)) +
        175.0 * SinDegrees(venus - a.latitudeAngleDegrees) + 175.0 * SinDegrees(venus + a.latitudeAngleDegrees) +
        127.0 * SinDegrees(a.meanLongitude - a.moonAnomalyDegrees) -
        115.0 * SinDegrees(a.meanLongitude + a.moonAnomalyDegrees);
    for (const LunarTerm& term : kLatitudeTerms) latitudeSum += term.sineAmplitude * ScaledTerm(a, term).sin;
    return {where.longitude, latitudeSum * 1e-6, where.distance};
}

double LunarLongitudeAt(double terrestrialCenturies) noexcept {
    return LongitudeAndDistanceAt(ArgumentsAt(terrestrialCenturies)).longitude;
}

}  // namespace timetool::sky
