#!/usr/bin/env python3
"""Computes the results in tables of colours again: make_colour_tables.py TABLE...

A row's results, which need not stand there yet, become those of the function below of that name in
doubles, with the mathematics of the C library. It is computed to 50 digits as well (python3-mpmath),
through the branches that the doubles take: both must agree within ROUNDING times the largest
number of the row (or 1). Published results stay, and the doubles must round to them.
"""
import math
import operator
import sys
from functools import partial

from mpmath import mp

mp.dps = 50
ROUNDING = 2.0**-44
PI = 3.141592653589793


class Number(float):
    """A double that carries the number without rounding."""

    def __new__(cls, double, exact=None):
        number = super().__new__(cls, double)
        number.exact = getattr(double, "exact", mp.mpf(double)) if exact is None else exact
        return number


def on_both(of_double, of_exact):
    def apply(*operands):
        numbers = [Number(x) for x in operands]
        return Number(of_double(*map(float, numbers)), of_exact(*(x.exact for x in numbers)))
    return apply


for name in "add sub mul truediv pow neg abs".split():
    apply = on_both(getattr(operator, name), getattr(operator, name))
    setattr(Number, f"__{name}__", apply)
    setattr(Number, f"__r{name}__", lambda a, b, apply=apply: apply(b, a))
sqrt, sin, cos, exp, atan2 = (
    on_both(getattr(math, name), getattr(mp, name)) for name in "sqrt sin cos exp atan2".split())


def is_near_zero(x):
    return -9.999999974752427e-7 <= x <= 9.999999974752427e-7


def weigh(x, y, z, *rows):
    return [row[0] * x + row[1] * y + row[2] * z for row in rows]


def BGR2HSV(b, g, r):
    larger = r if r > g else g
    value = larger if larger > b else b
    span = value - min(min(r, g), b)
    if is_near_zero(value) or is_near_zero(span):
        return -1.0, 0.0 if is_near_zero(value) else span / value, value
    if larger > b:
        hue = 60.0 * ((g - b) / span if r > g else (b - r) / span + 2.0)
    else:
        hue = 60.0 * ((r - g) / span + 4.0)
    return hue + 360.0 if hue < 0 else hue, span / value, value


def HSV2BGR(hue, s, v):
    if s <= 0:
        return [v if hue < 0 else 0.0] * 3
    p, sixths = (1.0 - s) * v, hue / 60.0
    if hue >= 360:
        return p, p, v
    sector = int(sixths) if abs(sixths) < 2**31 else -2**31  # also for NaN
    q = (1.0 - s * (sixths - float(sector))) * v
    t = (1.0 - s * (1.0 - (sixths - float(sector)))) * v
    sectors = (p, t, v), (p, v, q), (t, v, p), (v, q, p), (v, p, t), (q, p, v)
    return sectors[sector if 0 <= sector < 5 else 5]


def BGR2YUV(b, g, r):
    return weigh(r, g, b, (0.299, 0.587, 0.114), (-0.14713, -0.28886, 0.436),
                 (0.615, -0.51499, -0.10001))


def BGR2XYZ(*bgr):
    b, g, r = (100.0 * (((c + 0.055) / 1.055)**2.4 if c > 0.04045 else c / 12.92) for c in bgr)
    return weigh(r, g, b, (0.4124, 0.3576, 0.1805), (0.2126, 0.7152, 0.0722),
                 (0.0193, 0.1192, 0.9505))


def XYZ2BGR(x, y, z):
    bgr = weigh(x / 100.0, y / 100.0, z / 100.0, (0.0557101204, -0.2040210505, 1.0569959422),
                (-0.9689307147, 1.8757560608, 0.0415175238),
                (3.2406254773, -1.5372079722, -0.4986285986))
    return [1.055 * c**0.4166666666666667 - 0.055 if c > 0.0031308 else 12.92 * c for c in bgr]


def XYZ2Lab(x, y, z):
    fx, fy, fz = (t**0.3333333333333333 if t > 0.008856 else 7.787 * t + 0.13793103448275862
                  for t in (x / 95.047, y / 100.0, z / 108.883))
    return 116.0 * fy - 16.0, 500.0 * (fx - fy), 200.0 * (fy - fz)


def Lab2XYZ(l, a, b):
    fy = (l + 16.0) / 116.0
    x, y, z = (f * f * f if f * f * f > 0.008856 else (f - 0.13793103448275862) / 7.787
               for f in (a / 500.0 + fy, fy, fy - b / 200.0))
    return 95.047 * x, 100.0 * y, 108.883 * z


def BGR2Lab(*bgr):
    return XYZ2Lab(*BGR2XYZ(*bgr))


def Lab2BGR(*lab):
    return XYZ2BGR(*Lab2XYZ(*lab))


def to_polar(is_cone, *bgr):
    hue, s, v = BGR2HSV(*bgr)
    radius, angle = s * v if is_cone else s, PI * hue / 180.0
    return radius * cos(angle), radius * sin(angle), v


def from_polar(is_cone, x, y, v):
    if is_cone and is_near_zero(v):
        return 0.0, 0.0, 0.0
    s = sqrt(x * x + y * y) / v if is_cone else sqrt(x * x + y * y)
    if is_near_zero(s) or is_near_zero(v):
        return HSV2BGR(-1.0, s, v)
    radius = v * s if is_cone else s
    angle = atan2(y / radius, x / radius)
    return HSV2BGR((angle + 2.0 * PI if angle < 0 else angle) * 180.0 / PI, s, v)


BGR2CylindricalHSV, BGR2ConeHSV = partial(to_polar, False), partial(to_polar, True)
cylindricalHSV2BGR, coneHSV2BGR = partial(from_polar, False), partial(from_polar, True)


def by_hue(least_saturation, *bgr):
    hue, s, v = BGR2HSV(*bgr)
    is_dull = v < 0.13 or s < least_saturation
    return is_dull, BGR2Lab(*(HSV2BGR(0.0, s, v) if is_dull else HSV2BGR(hue, 1.0, 1.0)))


def BGR2WeightedFeature(b, g, r, kind):
    if b < 0 or g < 0 or r < 0:
        return 1000.0, 1000.0, 1000.0
    if kind in (2, 3):
        return to_polar(kind == 3, b, g, r)
    is_dull, (l, *ab) = by_hue(0.15, b, g, r) if kind == 1 else (False, BGR2Lab(b, g, r))
    return l + 1000.0 if is_dull else l, *ab


def weightedFeature2BGR(x, y, z, *out_and_kind):
    *out, kind = out_and_kind
    if kind not in (0, 1, 2, 3):
        return *BGR2Lab(*out), *out
    x = x - 1000.0 if kind == 1 and x > 700 else x
    return x, y, z, *(from_polar(kind == 3, x, y, z) if kind >= 2 else Lab2BGR(x, y, z))


def minus(one, two):
    return [x - y for x, y in zip(one, two)]


def length(*sides):
    return sqrt(sum((side * side for side in sides[1:]), sides[0] * sides[0]))


def CIEDeltaE76(*colours):
    return [length(*minus(BGR2Lab(*colours[:3]), BGR2Lab(*colours[3:])))]


def CIEDeltaE94(*colours):
    one, two = BGR2Lab(*colours[:3]), BGR2Lab(*colours[3:])
    (dl, da, db), c = minus(one, two), length(*one[1:])
    dc = c - length(*two[1:])
    dh = sqrt(max(da * da + db * db - dc * dc, Number(0.0)))
    return [length(dl, dc / (1.0 + 0.045 * c), dh / (1.0 + 0.015 * c))]


def mean_hue(turn, h1, h2):
    """Halfway between them; in degrees it may pass a turn."""
    if abs(h1 - h2) <= turn / 2:
        return (h1 + h2) / 2.0
    return (h1 + h2 - turn if turn != 360 and h1 + h2 >= turn else h1 + h2 + turn) / 2.0


def ciede2000(turn, one, two):
    """With hues in degrees (a turn is 360) or in radians."""
    in_degrees = turn == 360
    k6, k25, k30, k63, k275 = (k if in_degrees else math.radians(k) for k in (6, 25, 30, 63, 275))

    def radians(angle):
        return angle * PI / 180.0 if in_degrees else angle

    def share(c):
        return sqrt(c**7.0 / (c**7.0 + 6103515625.0))

    def hue(a, b):
        angle = atan2(b, a) * 180.0 / PI if in_degrees else atan2(b, a)
        return angle + turn if angle < 0 else angle

    (l1, a1, b1), (l2, a2, b2) = one, two
    stretch = 1.0 + 0.5 * (1.0 - share((length(a1, b1) + length(a2, b2)) / 2.0))
    a1, a2 = a1 * stretch, a2 * stretch
    c1, c2, h1, h2 = length(a1, b1), length(a2, b2), hue(a1, b1), hue(a2, b2)
    h = h2 - h1 if abs(h2 - h1) <= turn / 2 else h2 - h1 + (turn if h2 < h1 else -turn)
    h = 2.0 * sqrt(c1 * c2) * sin(radians(h / 2.0))
    c, middle = (c1 + c2) / 2.0, (l1 + l2) / 2.0 - 50.0
    mean = h1 + h2 if c1 * c2 == 0 and not in_degrees else mean_hue(turn, h1, h2)
    t = (1.0 - 0.17 * cos(radians(mean - k30)) + 0.24 * cos(radians(2.0 * mean)) +
         0.32 * cos(radians(3.0 * mean + k6)) - 0.2 * cos(radians(4.0 * mean - k63)))
    bell = exp(-(((mean - k275) / k25) * ((mean - k275) / k25)))
    rotation = -sin(radians(2.0 * (k30 * bell))) * (2.0 * share(c))
    l = (l2 - l1) / (1.0 + 0.015 * (middle * middle) / sqrt(20.0 + middle * middle))
    h, c = h / (1.0 + 0.015 * c * t), (c2 - c1) / (1.0 + 0.045 * c)
    return sqrt(l * l + c * c + h * h + rotation * c * h)


def CIEDeltaE2000(*colours):
    return [ciede2000(360.0, BGR2Lab(*colours[:3]), BGR2Lab(*colours[3:]))]


def CIEDE2000(*colours):
    return CIEDE2000ofLab(*BGR2Lab(*colours[:3]), *BGR2Lab(*colours[3:]))


def CIEDE2000ofLab(*labs):
    return [ciede2000(2.0 * PI, labs[:3], labs[3:])]


def publishedCIEDE2000(*labs):
    return CIEDE2000ofLab(*labs) + CIEDE2000ofLab(*labs[3:], *labs[:3])


def myDeltaE(*colours):
    return [length(*minus(by_hue(0.2, *colours[:3])[1], by_hue(0.2, *colours[3:])[1]))]


def LabCap(*lab):
    bounds = (0.0, 99.654922), (-85.928254, 97.961931), (-107.542807, 94.201418)
    return [low if x < low else high if x > high else x for x, (low, high) in zip(lab, bounds)]


def compute(row):
    words, _, given = row.partition(" =")
    function, *arguments = words.replace(" ?", "").replace(">", "").replace(",", " ").split()
    arguments = [Number(x) for x in arguments]
    results = [Number(x) for x in globals()[function](*arguments)]
    scale = max(1.0, *(abs(x) for x in (*arguments, *results) if x == x))
    for x in results:
        if x == x and abs(x.exact - x) > ROUNDING * scale:
            sys.exit(f"{row}\nis {float(x)!r}, without rounding {mp.nstr(x.exact, 20)}")
    if function.startswith("published"):
        if [f"{x:.4f}" for x in results] != given.strip().split(","):
            sys.exit(f"{row}\nis {results}")
        return row
    numbers = [repr(float(x)).removesuffix(".0") for x in results]
    return f"{words} = " + " ".join(",".join(numbers[i:i + 3]) for i in range(0, len(numbers), 3))


for path in sys.argv[1:]:
    with open(path) as table:
        rows = [row if row[:1] in "#" else compute(row) for row in table.read().splitlines()]
    with open(path, "w") as table:
        table.writelines(row + "\n" for row in rows)
