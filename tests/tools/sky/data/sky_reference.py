"""Shared pieces of the reference table generators: day counts, the
conversion between Julian Dates and PyEphem's dates, and writing a table."""
import datetime
import json

import ephem

# PyEphem counts days from 1899-12-31 12:00 UT (Julian Date 2415020.0).
EPHEM_EPOCH_JD = 2415020.0
JD_1970 = 2440587.5


def days_from_civil(year, month, day):
    """Days from 1970-01-01 to a proleptic Gregorian date, astronomical years."""
    y = year - 1 if month <= 2 else year
    era = y // 400  # floor division: eras of negative years count down
    yoe = y - era * 400
    doy = (153 * (month - 3 if month > 2 else month + 9) + 2) // 5 + day - 1
    doe = yoe * 365 + yoe // 4 - yoe // 100 + doy
    return era * 146097 + doe - 719468


def civil_from_days(days):
    z = days + 719468
    era = z // 146097
    doe = z - era * 146097
    yoe = (doe - doe // 1460 + doe // 36524 - doe // 146096) // 365
    doy = doe - (365 * yoe + yoe // 4 - yoe // 100)
    mp = (5 * doy + 2) // 153
    day = doy - (153 * mp + 2) // 5 + 1
    month = mp + 3 if mp < 10 else mp - 9
    return (yoe + era * 400 + (1 if month <= 2 else 0), month, day)


def date_text(days):
    y, m, d = civil_from_days(days)
    return "%d-%02d-%02d" % (y, m, d)


def to_ephem(jd):
    return ephem.Date(jd - EPHEM_EPOCH_JD)


def to_jd(date):
    return float(date) + EPHEM_EPOCH_JD


def write_table(path, about, rows):
    """One JSON document: what produced it, then one row per line."""
    with open(path, "w") as out:
        out.write("{\n")
        out.write('"about": %s,\n' % json.dumps(about, indent=1, ensure_ascii=False))
        out.write('"ephem": "%s",\n' % ephem.__version__)
        out.write('"rows": [\n')
        out.write(",\n".join(json.dumps(row, ensure_ascii=False) for row in rows))
        out.write("\n]}\n")


def _check_day_counts():
    """The day counts agree with Python's own calendar where it reaches, and
    walk without a gap through the years before it."""
    base = datetime.date(1970, 1, 1).toordinal()
    for ordinal in range(1, 3652059, 997):
        d = datetime.date.fromordinal(ordinal)
        assert days_from_civil(d.year, d.month, d.day) == ordinal - base, d
    for days in range(days_from_civil(-1001, 1, 1), days_from_civil(2, 1, 1)):
        assert days_from_civil(*civil_from_days(days)) == days, days


_check_day_counts()
