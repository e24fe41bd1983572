#!/usr/bin/python3
"""Writes sun_events.json: sunrise, sunset, civil dawn and civil dusk from
PyEphem (Debian's python3-ephem) at polar, tropical and mid-latitude places
over the years -1000 to 3000, for the tests of the sky library.

Each row is the solar day whose local mean noon (12:00 UT less longitude / 15
hours) falls on the row's date (proleptic Gregorian, astronomical years): the
window from local mean midnight to the next. An event is the first rising or
setting inside the window; one outside it, or none at all, is absent, named
"polar day" when the sun's centre at its culmination in the window stands
above the event's altitude and "polar night" otherwise.

Sunrise and sunset: the upper limb at 34' below the horizon with no
atmosphere (horizon -0:34, pressure 0, use_center=False). Civil twilight: the
centre at -6 degrees (horizon -6, use_center=True). Times are UT Julian Dates.

Where the sun at one of its culminations around the window comes within
0.02 degrees of an event's altitude, whether it crosses at all is below the
accuracy of any model of the sun's position; the pair of events is listed
under "grazing".

Run from this folder: /usr/bin/python3 generate_sun.py
"""
import math
import random

import ephem

from sky_reference import JD_1970, civil_from_days, date_text, days_from_civil, to_ephem, to_jd, write_table

PLACES = [
    # name, latitude north, longitude east
    ("Tromso", 69.65, 18.96),
    ("Longyearbyen", 78.22, 15.65),
    ("McMurdo", -77.85, 166.67),
    ("Singapore", 1.35, 103.82),
    ("Quito", -0.18, -78.47),
    ("London", 51.5, -0.13),
    ("Sydney", -33.87, 151.21),
    ("Cape Town", -33.92, 18.42),
    ("Default place", 43.3, -83.045),
    ("Auckland", -36.85, 174.76),
    ("Honolulu", 21.31, -157.86),
]
POLAR = {"Tromso", "Longyearbyen", "McMurdo"}

# Days every place gets: solstices and equinoxes, the turn of a few
# centuries, ancient and far-future days.
COMMON_DATES = [
    (2024, 3, 20), (2024, 6, 21), (2024, 9, 22), (2024, 12, 21), (2024, 1, 1), (2024, 12, 31),
    (-1000, 1, 1), (-1000, 6, 21), (-500, 3, 20), (0, 12, 21), (1, 1, 1), (1000, 6, 21),
    (1582, 10, 15), (1900, 1, 1), (1970, 1, 1), (2000, 1, 1), (2100, 6, 21), (2500, 9, 22),
    (3000, 6, 21), (3000, 12, 31),
]
RANDOM_DAYS_PER_PLACE = 16

EVENTS = [
    # key, horizon, use_center, rising
    ("sunrise", "-0:34", False, True),
    ("sunset", "-0:34", False, False),
    ("civil_dawn", "-6", True, True),
    ("civil_dusk", "-6", True, False),
]


def observer(lat, lon, horizon):
    o = ephem.Observer()
    o.lat = math.radians(lat)
    o.lon = math.radians(lon)
    o.elevation = 0.0
    o.pressure = 0.0
    o.horizon = horizon
    return o


GRAZING = 0.02  # degrees


def altitude_above(o, date, use_center):
    """Degrees the sun (its centre, or else its upper limb) stands above the
    observer's horizon altitude at a date."""
    o.date = date
    sun = ephem.Sun(o)
    altitude = sun.alt if use_center else sun.alt + sun.radius
    return math.degrees(altitude - o.horizon)


def culminations_above(lat, lon, start, horizon, use_center):
    """Above the altitude at the transit in the window, and at the lower
    culminations before and after that transit."""
    o = observer(lat, lon, horizon)
    sun = ephem.Sun()
    transit = o.next_transit(sun, start=to_ephem(start))
    lower = [o.previous_antitransit(sun, start=transit), o.next_antitransit(sun, start=transit)]
    return [altitude_above(o, d, use_center) for d in [transit] + lower]


def first_event(lat, lon, start, horizon, use_center, rising):
    """The first rising or setting in [start, start + 1 day), or None. A
    search started at a lower culmination where the sun stays up gives up
    there, so the search starts again at each quarter of the window."""
    o = observer(lat, lon, horizon)
    search = o.next_rising if rising else o.next_setting
    found = []
    for quarter in range(4):
        try:
            when = to_jd(search(ephem.Sun(), start=to_ephem(start + quarter / 4.0), use_center=use_center))
        except ephem.CircumpolarError:
            continue
        if start <= when < start + 1.0:
            found.append(when)
    return min(found) if found else None


def event(lat, lon, start, horizon, use_center, rising):
    when = first_event(lat, lon, start, horizon, use_center, rising)
    if when is not None:
        return round(when, 7)
    return "polar day" if culminations_above(lat, lon, start, horizon, use_center)[0] > 0.0 else "polar night"


def row(name, lat, lon, days):
    start = JD_1970 + days - lon / 360.0  # local mean midnight
    result = {"place": name, "latitude": lat, "longitude": lon, "date": date_text(days), "days": days}
    grazing = []
    for key, horizon, use_center, rising in EVENTS:
        result[key] = event(lat, lon, start, horizon, use_center, rising)
        if min(abs(a) for a in culminations_above(lat, lon, start, horizon, use_center)) < GRAZING:
            grazing.append(key)
    if grazing:
        result["grazing"] = grazing
    return result


def pattern(r):
    return tuple(isinstance(r[key], str) for key, _, _, _ in EVENTS)


def main():
    rng = random.Random(20240621)
    first, last = days_from_civil(-1000, 1, 1), days_from_civil(3000, 12, 31)
    rows = []
    for name, lat, lon in PLACES:
        days = {days_from_civil(*d) for d in COMMON_DATES}
        days |= {rng.randint(first, last) for _ in range(RANDOM_DAYS_PER_PLACE)}
        if name == "Tromso":  # every day of December and June
            days |= {days_from_civil(2024, 12, 1) + i for i in range(31)}
            days |= {days_from_civil(2024, 6, 1) + i for i in range(30)}
        place_rows = {d: row(name, lat, lon, d) for d in sorted(days)}
        if name in POLAR:
            # Every day of 2024 is computed; the days where an event appears
            # or disappears are kept with the days on either side.
            year = [row(name, lat, lon, days_from_civil(2024, 1, 1) + i) for i in range(366)]
            for i in range(1, len(year)):
                if pattern(year[i]) != pattern(year[i - 1]):
                    for r in year[max(i - 2, 0):i + 2]:
                        place_rows[r["days"]] = r
        rows.extend(place_rows[d] for d in sorted(place_rows))
    about = __doc__.strip().splitlines()
    write_table("sun_events.json", about, rows)
    print("sun_events.json: %d rows" % len(rows))


if __name__ == "__main__":
    main()
