#include "delta_t.h"

#include <array>
#include <cstddef>
#include <limits>

#include "julian_date.h"
#include "polynomial.h"

namespace timetool::sky {
namespace {

// One piece of Delta T: a polynomial in (year - origin) / scale from its
// first year up to the next piece's first year.
struct DeltaTPiece {
    double firstYear;
    double origin;
    double scale;
    std::array<double, 8> coefficients;  // constant term first
};

// The pieces as published; the 2050 piece, published as
// -20 + 32 u^2 - 0.5628 (2150 - y), is written as a polynomial in u.
constexpr std::array<DeltaTPiece, 15> kPieces{{
    {-std::numeric_limits<double>::infinity(), 1820.0, 100.0, {-20.0, 0.0, 32.0}},
    {-500.0, 0.0, 100.0, {10583.6, -1014.41, 33.78311, -5.952053, -0.1798452, 0.022174192, 0.0090316521}},
    {500.0, 1000.0, 100.0, {1574.2, -556.01, 71.23472, 0.319781, -0.8503463, -0.005050998, 0.0083572073}},
    {1600.0, 1600.0, 1.0, {120.0, -0.9808, -0.01532, 1.0 / 7129.0}},
    {1700.0, 1700.0, 1.0, {8.83, 0.1603, -0.0059285, 0.00013336, -1.0 / 1174000.0}},
    {1800.0,
     1800.0,
     1.0,
     {13.72, -0.332447, 0.0068612, 0.0041116, -0.00037436, 0.0000121272, -0.0000001699, 0.000000000875}},
    {1860.0, 1860.0, 1.0, {7.62, 0.5737, -0.251754, 0.01680668, -0.0004473624, 1.0 / 233174.0}},
    {1900.0, 1900.0, 1.0, {-2.79, 1.494119, -0.0598939, 0.0061966, -0.000197}},
    {1920.0, 1920.0, 1.0, {21.20, 0.84493, -0.076100, 0.0020936}},
    {1941.0, 1950.0, 1.0, {29.07, 0.407, -1.0 / 233.0, 1.0 / 2547.0}},
    {1961.0, 1975.0, 1.0, {45.45, 1.067, -1.0 / 260.0, -1.0 / 718.0}},
    {1986.0, 2000.0, 1.0, {63.86, 0.3345, -0.060374, 0.0017275, 0.000651814, 0.00002373599}},
    {2005.0, 2000.0, 1.0, {62.92, 0.32217, 0.005589}},
    {2050.0, 1820.0, 100.0, {-20.0 - 0.5628 * 330.0, 0.5628 * 100.0, 32.0}},
    {2150.0, 1820.0, 100.0, {-20.0, 0.0, 32.0}},
}};

}  // namespace

double DeltaTSeconds(double decimalYear) noexcept {
    std::size_t piece = kPieces.size() - 1;
    while (piece > 0 && decimalYear < kPieces[piece].firstYear) --piece;  // a NaN year ends on the first piece
    const DeltaTPiece& p = kPieces[piece];
    return Polynomial(p.coefficients, (decimalYear - p.origin) / p.scale);
}

double TerrestrialJulianDate(double universalJulianDate) noexcept {
    return universalJulianDate + DeltaTSeconds(DecimalYear(universalJulianDate)) / kSecondsPerDay;
}

}  // namespace timetool::sky
