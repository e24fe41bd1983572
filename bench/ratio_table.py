#!/usr/bin/env python3
"""Prints the table of medians and ratios (module / peer) from Google
Benchmark's JSON output, against the target of each row, flagging misses.

CPU time is used, not wall time: on a shared machine wall time counts the
time the process waited for a core; both sides of a ratio run in one
process, one after the other, so their CPU times compare."""
import json
import sys

# (work, module benchmark, peer benchmark, peer label, highest ratio allowed)
# A bound of None makes an information row with no target.
ROWS = [
    ("Gregorian date -> day number", "GregorianToDay_Module", "GregorianToDay_DateH", "date.h", 3.0),
    ("Gregorian date -> day number", "GregorianToDay_Module", "GregorianToDay_Icu", "ICU (>= 6x faster)", 1 / 6),
    ("day number -> Gregorian date", "DayToGregorian_Module", "DayToGregorian_DateH", "date.h", 3.0),
    ("day number -> Gregorian date", "DayToGregorian_Module", "DayToGregorian_Icu", "ICU", None),
    ("Julian, both directions", "JulianBoth_Module", "JulianBoth_DateH", "date.h julian.h", 3.0),
    ("day number -> Hebrew date", "DayToHebrew_Module", "DayToHebrew_Hdate", "libhdate", 1.0),
    ("day number -> Hebrew date", "DayToHebrew_Module", "DayToHebrew_Icu", "ICU", None),
    ("Hebrew date -> day number", "HebrewToDay_Module", "HebrewToDay_Hdate", "libhdate", 2.0),
    ("sunrise and sunset", "SunTimes_Module", "SunTimes_Hdate", "libhdate", 1.25),
    ("sunrise and sunset", "SunTimes_Module", "SunTimes_Nova", "libnova (>= 1000x faster)", 1 / 1000),
    ("moon phase", "MoonPhase_Module", "MoonPhase_MeanLunation", "mean lunation", 5.0),
    ("moon phase", "MoonPhase_Module", "MoonPhase_Nova", "libnova (>= 10000x faster)", 1 / 10000),
    ("true sunrise and sunset (timetool)", "TrueSunTimes_Sky", "SunTimes_Nova", "libnova (>= 50x faster)", 1 / 50),
    ("true sunrise and sunset (timetool)", "TrueSunTimes_Sky", "SunTimes_Hdate", "libhdate", None),
    ("true sun day with civil twilight (timetool)", "TrueSunDay_Sky", "SunTimes_Nova", "libnova (>= 40x faster)",
     1 / 40),
    ("true moon phase (timetool)", "TrueMoonPhase_Sky", "MoonPhase_Nova", "libnova (>= 100x faster)", 1 / 100),
    ("true moon phase and lit fraction (timetool)", "TrueMoonPhaseLit_Sky", "MoonPhase_Nova", "libnova (>= 60x faster)",
     1 / 60),
    ("append a value", "Append_Module", "Append_BoostMutex", "boost + mutex", 1.25),
    ("append a value", "Append_Module", "Append_Boost", "boost bare", None),
    ("read by age", "ReadByAge_Module", "ReadByAge_BoostMutex", "boost + mutex", 1.25),
    ("read by age", "ReadByAge_Module", "ReadByAge_Boost", "boost bare", None),
    ("append with one listener", "AppendListener_Module", "AppendListener_BoostMutex", "boost + mutex + virtual", 4.0),
    ("reference counting", "RefCount_Module", "RefCount_VirtualAtomic", "virtual atomic pair", 1.1),
    ("reference counting", "RefCount_Module", "VirtualCall_Plain", "one virtual call", None),
]


def medians(path):
    with open(path) as f:
        data = json.load(f)
    result = {}
    for b in data["benchmarks"]:
        if b.get("run_type") == "aggregate" and b.get("aggregate_name") != "median":
            continue
        name = b.get("run_name", b["name"])
        scale = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}[b.get("time_unit", "ns")]
        result[name] = b["cpu_time"] * scale
    return result


def target_text(bound):
    if bound is None:
        return "-"
    if bound < 1:
        return "<= 1/%d" % round(1 / bound)
    return "<= %gx" % bound


def ratio_text(ratio):
    if ratio < 0.01:
        return "1/%.0f" % (1 / ratio)
    return "%.2fx" % ratio


def main():
    times = medians(sys.argv[1])
    header = ("Work", "Peer", "Module ns", "Peer ns", "Ratio", "Target", "")
    lines = []
    misses = 0
    for work, mod, peer, label, bound in ROWS:
        if mod not in times or peer not in times:
            lines.append((work, label, "n/a", "n/a", "n/a", target_text(bound), "NOT RUN"))
            misses += 1
            continue
        ratio = times[mod] / times[peer]
        flag = ""
        if bound is not None and ratio > bound:
            flag = "MISS"
            misses += 1
        elif bound is not None:
            flag = "ok"
        lines.append((work, label, "%.1f" % times[mod], "%.1f" % times[peer], ratio_text(ratio),
                      target_text(bound), flag))
    widths = [max(len(str(row[i])) for row in [header] + lines) for i in range(len(header))]
    out = ["| " + " | ".join(str(c).ljust(w) for c, w in zip(header, widths)) + " |",
           "|" + "|".join("-" * (w + 2) for w in widths) + "|"]
    for row in lines:
        out.append("| " + " | ".join(str(c).ljust(w) for c, w in zip(row, widths)) + " |")
    print("\n".join(out))
    print("\nMedian CPU time per operation; ratio = module / peer. Rows missing their target: %d" % misses)


if __name__ == "__main__":
    main()
