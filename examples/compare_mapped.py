#!/usr/bin/env python3
"""Compares a target with each of the features that a file holds one after the other, mapped into
memory: compare_mapped.py TARGET FEATURES

Prints the number and the distance of the closest, and how many comparisons a second were made. Set
ORV_LIBRARY to the shared library where the loader does not find it by itself.
"""
import ctypes
import mmap
import os
import sys
import time

library = ctypes.CDLL(os.environ.get("ORV_LIBRARY", "libORV_CompareFeatures.so.1"))
compare = library.ORV_CompareFeatures
compare.restype = ctypes.c_int
compare.argtypes = [ctypes.c_char_p, ctypes.c_uint, ctypes.c_void_p, ctypes.c_uint,
                    ctypes.POINTER(ctypes.c_double)]


def main() -> None:
    if len(sys.argv) != 3:
        sys.exit("usage: compare_mapped.py TARGET FEATURES")
    with open(sys.argv[1], "rb") as file:
        target = file.read()
    with open(sys.argv[2], "rb") as file:
        features = mmap.mmap(file.fileno(), 0, flags=mmap.MAP_PRIVATE)
    length = len(target)
    count = len(features) // length
    # ctypes takes the address of memory that may be written; MAP_PRIVATE keeps the file as it is.
    address = ctypes.addressof(ctypes.c_char.from_buffer(features))

    distance = ctypes.c_double()
    pointer = ctypes.pointer(distance)
    smallest, closest = 2.0, 0
    begin = time.perf_counter()
    for i in range(count):
        if compare(target, length, address + i * length, length, pointer) == 0:
            if distance.value < smallest:
                smallest, closest = distance.value, i
    elapsed = time.perf_counter() - begin
    print(f"closest: {closest} of {count}, distance {smallest:.6f}")
    print(f"{count / elapsed:.0f} comparisons a second", file=sys.stderr)


if __name__ == "__main__":
    main()
