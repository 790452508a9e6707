#!/usr/bin/env python3
"""Compares two files through the C interface: compare.py TARGET QUERY

Set ORV_LIBRARY to the shared library where the loader does not find it by itself. Like the
interface, the script trusts its bitstreams: give it files of your own.
"""
import ctypes
import os
import sys

library = ctypes.CDLL(os.environ.get("ORV_LIBRARY", "libORV_CompareFeatures.so.1"))
library.ORV_GetCompareFeaturesVersion.restype = ctypes.c_char_p
library.ORV_CompareFeatures.restype = ctypes.c_int
library.ORV_CompareFeatures.argtypes = [
    ctypes.c_char_p, ctypes.c_uint, ctypes.c_char_p, ctypes.c_uint,
    ctypes.POINTER(ctypes.c_double),
]


def compare(target: bytes, query: bytes) -> float:
    """Returns the smallest distance between the target and the query's features."""
    distance = ctypes.c_double()
    if library.ORV_CompareFeatures(target, len(target), query, len(query), distance) != 0:
        raise ValueError("the query holds no feature of the target's length")
    return distance.value


def main() -> None:
    if len(sys.argv) != 3:
        sys.exit("usage: compare.py TARGET QUERY")
    with open(sys.argv[1], "rb") as target, open(sys.argv[2], "rb") as query:
        distance = compare(target.read(), query.read())
    print(f"version {library.ORV_GetCompareFeaturesVersion().decode()}: {distance:.6f}")


if __name__ == "__main__":
    main()
