#!/usr/bin/python3
"""Writes moon_quarters.json and moon_phase.json from PyEphem (Debian's
python3-ephem), for the tests of the sky library.

moon_quarters.json: instants of new moon, first quarter, full moon and last
quarter (ephem.next_new_moon and its siblings, which search the difference
of the Moon's and the Sun's apparent geocentric ecliptic longitudes of date):
every one from 2020 to 2030, and the next of each kind after random instants
over the years -1000 to 3000. "quarter" is 0 new, 1 first quarter, 2 full,
3 last quarter.

moon_phase.json: at random instants over the years -1000 to 3000 (more of
them in 1900 to 2100), the phase angle (the Moon's apparent geocentric
ecliptic longitude of date less the Sun's, degrees in [0, 360)) and the
illuminated fraction of the disc (Moon.phase, a percentage, divided by 100;
Moon.moon_phase is computed otherwise and drifts away from it by up to a few
hundredths of the disc far from 2000).

Times are UT Julian Dates; "delta_t" is PyEphem's own TT - UT in seconds at
the instant, so that positions can be compared in TT where Delta T models
differ.

Run from this folder: /usr/bin/python3 generate_moon.py
"""
import math
import random

import ephem

from sky_reference import days_from_civil, JD_1970, to_ephem, to_jd, write_table

SEARCHES = [ephem.next_new_moon, ephem.next_first_quarter_moon, ephem.next_full_moon, ephem.next_last_quarter_moon]
FIRST = JD_1970 + days_from_civil(-1000, 1, 1)
END = JD_1970 + days_from_civil(3001, 1, 1) - 30.0  # every searched quarter stays inside the years


def quarters():
    rows = []
    jd = JD_1970 + days_from_civil(2020, 1, 1)
    end = JD_1970 + days_from_civil(2031, 1, 1)
    events = []
    for quarter, search in enumerate(SEARCHES):
        d = jd
        while True:
            d = to_jd(search(to_ephem(d)))
            if d >= end:
                break
            events.append((d, quarter))
    rng = random.Random(19000101)
    for _ in range(150):
        start = rng.uniform(FIRST, END)
        for quarter, search in enumerate(SEARCHES):
            events.append((to_jd(search(to_ephem(start))), quarter))
    for d, quarter in sorted(events):
        rows.append({"julian_date": round(d, 7), "quarter": quarter, "delta_t": round(ephem.delta_t(to_ephem(d)), 3)})
    return rows


def phase(jd):
    d = to_ephem(jd)
    sun, moon = ephem.Sun(d), ephem.Moon(d)
    sun_lon = ephem.Ecliptic(ephem.Equatorial(sun.g_ra, sun.g_dec, epoch=d), epoch=d).lon
    moon_lon = ephem.Ecliptic(ephem.Equatorial(moon.g_ra, moon.g_dec, epoch=d), epoch=d).lon
    angle = math.degrees(moon_lon - sun_lon) % 360.0
    return {"julian_date": round(jd, 7), "phase": round(angle, 6), "illuminated": round(moon.phase / 100.0, 7),
            "delta_t": round(ephem.delta_t(d), 3)}


def phases():
    rng = random.Random(20240111)
    modern = (JD_1970 + days_from_civil(1900, 1, 1), JD_1970 + days_from_civil(2100, 1, 1))
    instants = [rng.uniform(FIRST, END) for _ in range(300)] + [rng.uniform(*modern) for _ in range(200)]
    return [phase(jd) for jd in sorted(instants)]


def main():
    about = __doc__.strip().splitlines()
    q = quarters()
    write_table("moon_quarters.json", about, q)
    p = phases()
    write_table("moon_phase.json", about, p)
    print("moon_quarters.json: %d rows, moon_phase.json: %d rows" % (len(q), len(p)))


if __name__ == "__main__":
    main()
