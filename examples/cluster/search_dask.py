#!/usr/bin/env python3
"""Finds the features that are closest to a target among packed files, on a Dask cluster.

    search_dask.py SCHEDULER TARGET K FILE...

prints what `VorquellSearch -k K TARGET` with `--packed` before each FILE prints. The workers see
the files under the same names and can import vorquell; one that is lost is replaced by the others.
"""
import pathlib
import sys

import numpy as np
from distributed import Client

import vorquell

BLOCK_BYTES = 1 << 28


def search(target, name, first, count, k):
    """The closest features of a block, on one thread: a worker runs a block on each of its own."""
    features = np.memmap(name, np.uint8, "r", first * target.size, (count, target.size))
    distances, indices = vorquell.nearest(target, features, k, threads=1)
    return distances, first + indices


def main(scheduler, target_name, k, *names):
    target = np.fromfile(target_name, np.uint8)
    if target.size == 0 or int(k) < 1:
        sys.exit("search_dask.py: wants a target that is not empty, and a K of 1 or more")
    step = max(BLOCK_BYTES // target.size, 1)
    sizes = [pathlib.Path(name).stat().st_size for name in names]
    if any(size % target.size for size in sizes):
        sys.exit("search_dask.py: the size of a file is no multiple of the target's")
    counts = [size // target.size for size in sizes]
    blocks = [(file, first, min(step, count - first)) for file, count in enumerate(counts)
              for first in range(0, count, step)]
    if not blocks:
        sys.exit("search_dask.py: no features to search")
    with Client(scheduler) as client:
        found = client.gather([client.submit(search, target, names[file], first, count, int(k))
                               for file, first, count in blocks])
    distances, indices = (np.concatenate(columns) for columns in zip(*found))
    files = np.repeat([file for file, _, _ in blocks], [len(part) for part, _ in found])
    for best in np.lexsort((indices, files, distances))[:int(k)]:
        print(f"{distances[best]:f}\t{indices[best]}\t{names[files[best]]}")


if __name__ == "__main__":
    main(*sys.argv[1:])
