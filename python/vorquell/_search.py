"""Distances of one pair, of many, and the closest."""
import ctypes
from typing import SupportsIndex

import numpy as np
from numpy.typing import NDArray

from vorquell._arrays import (BytesLike, address, as_count, as_features, as_flat, as_target,
                              as_targets)
from vorquell._library import Match, check, library

_MATCH = np.dtype([("index", np.uint64), ("distance", np.float64)])
_MOST_THREADS = 2**32 - 1


def match(target: BytesLike, query: BytesLike) -> tuple[float, int]:
    """Find the feature of a query that is closest to a target.

    Parameters
    ----------
    target : bytes-like
        One feature, 1 to 2**28 - 1 bytes.
    query : bytes-like
        One feature of the target's length, or else a bitstream; a truncated one is refused.

    Returns
    -------
    distance : float
        0.0 to 1.0.
    frame : int
        The number of the closest frame, counted from 0 over all frames of the bitstream, the lowest
        among equally close ones; 0 for a feature.

    Raises
    ------
    ValueError
        With a text that says why there is no distance.

    Examples
    --------
    >>> from vorquell import wrap
    >>> match(b"\\x00\\x00", wrap([b"\\xff\\xff", b"\\x00\\x01"]))
    (0.0625, 1)
    """
    one = as_target(target)
    other = as_flat(query, "query")
    found = Match()
    check(library.ORV_MatchQuery(address(one), one.size, address(other), other.size,
                                 ctypes.byref(found)))
    return found.distance, found.index


def distance(target: BytesLike, query: BytesLike) -> float:
    """Compute the distance of a target and a query, the closest feature's as `match` finds it.

    Examples
    --------
    >>> distance(b"\\x00\\x00", b"\\x00\\x01")
    0.0625
    """
    return match(target, query)[0]


def distances(targets: BytesLike, features: BytesLike, *,
              threads: SupportsIndex = 0) -> NDArray[np.float64]:
    """Compute the distance of each target to each feature.

    Parameters
    ----------
    targets : array of uint8, shape (m, length) or (length,), or bytes-like
        One dimension is one target.
    features : array of uint8, shape (n, length), or n * length bytes
        C-contiguous ones are not copied.
    threads : int
        0 for as many as the process may run on.

    Returns
    -------
    ndarray of float64, shape (m, n), or (n,) for one target

    Raises
    ------
    TypeError, ValueError
        For another dtype or shape than wanted.

    Examples
    --------
    >>> distances(b"\\x00", b"\\x00\\x01\\xff")
    array([0.   , 0.125, 1.   ])
    """
    several = as_targets(targets)
    length = several.shape[-1]
    many = as_features(features, length)
    counted = min(as_count(threads, "threads", 0), _MOST_THREADS)
    found = np.empty(several.shape[:-1] + many.shape[:1])
    check(library.ORV_Distances(address(several), several.size // length, address(many),
                                len(many), length, counted, address(found)))
    return found


def nearest(targets: BytesLike, features: BytesLike, k: SupportsIndex = 10, *,
            threads: SupportsIndex = 0) -> tuple[NDArray[np.float64], NDArray[np.int64]]:
    """Find the `k` closest features of each target.

    Parameters
    ----------
    targets, features, threads
        As `distances` takes them.
    k : int
        How many to find, 10 unless said otherwise; all where there are fewer features.

    Returns
    -------
    distances : ndarray of float64, shape (m, min(k, n)), or (min(k, n),) for one target
        The closest first.
    indices : ndarray of int64, of the same shape
        Which features these are; the lower index first among equally close ones.

    Examples
    --------
    >>> found, indices = nearest(b"\\x00", b"\\x01\\xff\\x00\\x10", k=3)
    >>> found, indices
    (array([0.   , 0.125, 0.125]), array([2, 0, 3]))
    """
    several = as_targets(targets)
    length = several.shape[-1]
    many = as_features(features, length)
    wanted = min(as_count(k, "k", 1), len(many))
    counted = min(as_count(threads, "threads", 0), _MOST_THREADS)
    matches = np.empty(several.shape[:-1] + (wanted,), dtype=_MATCH)
    check(library.ORV_Nearest(address(several), several.size // length, address(many), len(many),
                              length, max(wanted, 1), counted, address(matches)))
    return matches["distance"].copy(), matches["index"].astype(np.int64)
