#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Prints the statistics report of two fields of the quakes, worked out apart from the product.

Reads the dBASE file byte by byte and computes exactly, in fractions. The output is the file quakes-mag-stations.txt beside this script.
"""
import decimal
import fractions
import pathlib
import struct
import sys

DATA = pathlib.Path(__file__).resolve().parents[3] / "samples" / "earth" / "data" / "quakes.dbf"
NAMES = {3: "thousand", 6: "million", 9: "billion", -4: "ten thousandths",
         -5: "hundred thousandths", -6: "millionths", -9: "billionths"}
RULE = "-" * 74


def read(path, field):
    """The texts of one field, of records that are not deleted."""
    data = path.read_bytes()
    count, head, size = struct.unpack_from("<IHH", data, 4)
    start = 1
    for at in range(32, head - 1, 32):
        name = data[at:at + 11].split(b"\0")[0].decode("ascii")
        width = data[at + 16]
        if name == field:
            break
        start += width
    else:
        raise SystemExit(f"no field {field}")
    records = (data[head + size * n:head + size * (n + 1)] for n in range(count))
    return [record[start:start + width].decode("ascii").strip() for record in records
            if record[0:1] == b" "]


def plain(value, places):
    """Thousands in groups, at most so many places, no zeros at the end."""
    text = f"{value:,.{places}f}"
    return text.rstrip("0").rstrip(".") if "." in text else text


def spoken(value, places):
    sign, value = ("-" if value < 0 else ""), abs(value)
    if value == 0 or 0.001 <= value <= 999999:
        return sign + plain(value, places)
    if 0.0001 <= value < 0.001:
        mantissa, exponent = value * 10000, -4
    else:
        mantissa, exponent = f"{value:.{places}e}".split("e")
        mantissa, exponent = float(mantissa), int(exponent)
    power = 0
    while exponent % 3 and exponent not in (-2, -4, -5):
        exponent -= 1
        power += 1
    return sign + plain(10.0**power * mantissa, places) + " " + NAMES[exponent]


def modes(values):
    counts = {}
    for value in values:
        counts[value] = counts.get(value, 0) + 1
    best = max(counts.values())
    if best < 2:
        return " < No Mode Found >"
    winners = [f"{value:.15G}" for value in sorted(counts) if counts[value] == best]
    if len(winners) == 1:
        return f"1 mode found [{best:,} cases]: Value = {winners[0]}"
    return f"{len(winners)} modes found [{best:,} cases each]: Values = " + ", ".join(winners)


def exactly(values):
    exact = [fractions.Fraction(value) for value in values]
    n = len(exact)
    total = sum(exact)
    mean = total / n
    variance = sum((value - mean)**2 for value in exact) / (n - 1)
    middle = (exact[(n - 1) // 2] + exact[n // 2]) / 2
    with decimal.localcontext() as context:
        context.prec = 60
        root = lambda x: (decimal.Decimal(x.numerator) / decimal.Decimal(x.denominator)).sqrt()
        return [float(x) for x in (total, mean, middle, exact[0], exact[-1], exact[-1] - exact[0],
                                   root(variance / n), variance, root(variance))]


def block(field, ignored):
    values = sorted(float(text) for text in read(DATA, field) if float(text) not in ignored)
    places = [2, 2, 2, 2, 2, 2, 4, 4, 4]
    shown = [spoken(x, p) for x, p in zip(exactly(values), places)]
    labels = ["Total", "Mean", "Median", "Minimum", "Maximum", "Range", "Standard Error of Mean",
              "Variance", "Standard Deviation"]
    lines = [f"  {label}: {text}" for label, text in zip(labels, shown)]
    lines.insert(3, f"  Mode: {modes(values)}")
    lines += [f"  Number of Records: {spoken(float(len(values)), 0)}", "  Empty/Null Values: 0"]
    return [f'Statistics on Field "{field}" in quakes:', "   --> All Records Analyzed...", RULE,
            *lines, RULE, ""]


def main():
    lines = block("MAG", [-9999.0]) + block("STATIONS", [-9999.0])
    lines += ["The following values were ignored in the analysis:", " --> -9999", RULE,
              "Analysis Complete:   2:15:07 PM", "Monday, November 16, 2026"]
    sys.stdout.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
