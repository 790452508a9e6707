"""Normalised Hamming distances of bit strings, and the closest of many.

A feature is a run of bytes that is compared bit by bit; the distance of two features of equal
length is the share of bits in which they differ, from 0.0 (identical) to 1.0. Two unrelated random
features lie near 0.5.

Features lie one after the other in arrays of bytes: NumPy arrays of ``uint8``, ``bytes``,
``memoryview``, ``mmap`` or ``numpy.memmap``. What is C-contiguous is never copied, so a file may be
larger than memory; one that is truncated during a call ends the process. Features that are booleans
become bytes by `numpy.packbits`:

>>> import numpy as np
>>> bits = np.random.default_rng(1).integers(0, 2, size=(1000, 256), dtype=bool)
>>> features = np.packbits(bits, axis=1)
>>> features.shape
(1000, 32)
>>> found, indices = nearest(features[7], features, k=3)
>>> int(indices[0]), float(found[0])
(7, 0.0)

Calls release the GIL, compute on all processors that the process may use unless `threads` says
otherwise, and print nothing.
"""
from vorquell._bitstream import unwrap, wrap
from vorquell._search import distance, distances, match, nearest
from vorquell._version import __version__

__all__ = ["__version__", "distance", "distances", "match", "nearest", "unwrap", "wrap"]
