// Age of the moon in degrees of the mean lunation.
#pragma once

// Offset in days of mean new moon `lunation` from 1 January 2000 00:00.
double MeanNewMoonOffset(double lunation) noexcept;

// daysSinceReference: star date less that of 1 January 2000 00:00. The result
// is 0 at mean new moon and 180 at mean full moon, below 360 for finite input.
double MoonPhaseDegrees(double daysSinceReference) noexcept;
