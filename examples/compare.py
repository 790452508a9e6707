#!/usr/bin/env python3
"""Compares two files: compare.py TARGET QUERY

prints the distance of the closest feature and the number of its frame. The module is found where the
package or pip installed it, else through PYTHONPATH=python VORQUELL_LIBRARY_DIR=build.
"""
import pathlib
import sys

import vorquell


def main() -> None:
    if len(sys.argv) != 3:
        sys.exit("usage: compare.py TARGET QUERY")
    try:
        target, query = (pathlib.Path(name).read_bytes() for name in sys.argv[1:])
        distance, frame = vorquell.match(target, query)
    except (OSError, ValueError) as error:
        sys.exit(f"compare.py: {error}")
    print(f"distance {distance:.6f}, frame {frame}")


if __name__ == "__main__":
    main()
