"""Bitstreams: many features in one query, a frame each."""
from collections.abc import Iterable
from typing import SupportsIndex

import numpy as np

from vorquell._arrays import LONGEST, Bytes, BytesLike, as_count, as_flat
from vorquell._library import text_of

_VERSION = slice(4, 8)
_FRAME_COUNT = slice(64, 68)
_FIRST_FRAME = 184
_FRAME_HEADER = 32
_FEATURE_LENGTH = slice(24, 28)  # in a frame
_MOST_FRAMES = 1500
_NO_BITSTREAM = -2
_CUT_SHORT = -3


def wrap(features: Iterable[BytesLike]) -> bytes:
    """Make a version 7 bitstream of features.

    Parameters
    ----------
    features : iterable of bytes-like, or what has a buffer of shape (n, length)
        1 to 1500 of one length; an empty one becomes a frame without a feature.

    Raises
    ------
    ValueError
        For none or more than 1500, and for mixed lengths: after a feature of another length than the
        one looked for a reader skips the frame's header only, and loses its way.

    Examples
    --------
    >>> unwrap(wrap([b"one", b"", b"two"]), 3)
    [b'one', b'two']
    """
    arrays = _arrays(features)
    if not 1 <= len(arrays) <= _MOST_FRAMES:
        raise ValueError(f"features: got {len(arrays)}, want 1 to {_MOST_FRAMES}")
    lengths = sorted({array.size for array in arrays} - {0})
    if len(lengths) > 1:
        raise ValueError(f"features: got lengths {lengths}, want one: a reader that looks for one "
                         "length loses its way after a feature of another")
    if lengths and lengths[0] > LONGEST:
        raise ValueError(f"features: got length {lengths[0]}, want {LONGEST} or less")
    header = bytearray(_FIRST_FRAME)
    header[_VERSION] = (7).to_bytes(4, "little")
    header[_FRAME_COUNT] = len(arrays).to_bytes(4, "little")
    return bytes(header) + b"".join(map(_frame, arrays))


def _arrays(features: Iterable[BytesLike]) -> list[Bytes]:
    try:
        view = memoryview(features)  # type: ignore[arg-type]
    except (TypeError, ValueError):
        pass
    else:
        if view.ndim != 2 and view.format != "O":  # byte strings in arrays lose zeros at their ends
            raise TypeError(f"features: got {type(features).__name__} of shape {view.shape}, want "
                            "(n, length) or an iterable of bytes-likes")
        features = np.asarray(features)
    return [as_flat(feature, "features") for feature in features]


def _frame(feature: Bytes) -> bytes:
    header = bytearray(_FRAME_HEADER)
    header[_FEATURE_LENGTH] = feature.size.to_bytes(4, "little")
    return bytes(header) + feature.tobytes()


def unwrap(bitstream: BytesLike, length: SupportsIndex) -> list[bytes]:
    """Return the features of `length` bytes that a bitstream holds, in its order.

    A version 8 bitstream holds none.

    Raises
    ------
    ValueError
        For what is no bitstream, and for one that is cut short.
    """
    data = as_flat(bitstream, "bitstream")
    wanted = as_count(length, "length", 1)
    version = _number(data, _VERSION) if data.size >= _VERSION.stop else 0
    if version == 8:
        return []
    if version != 7:
        raise ValueError(text_of(_NO_BITSTREAM))
    if data.size < _FRAME_COUNT.stop:
        raise ValueError(text_of(_CUT_SHORT))
    frames = _number(data, _FRAME_COUNT)
    if not 1 <= frames <= _MOST_FRAMES:
        raise ValueError(text_of(_NO_BITSTREAM))
    return _walk(data, frames, wanted)


def _walk(data: Bytes, frames: int, wanted: int) -> list[bytes]:
    features = []
    at = _FIRST_FRAME
    for _ in range(frames):
        if at + _FEATURE_LENGTH.stop > data.size:
            raise ValueError(text_of(_CUT_SHORT))
        length = _number(data[at:], _FEATURE_LENGTH)
        at += _FRAME_HEADER
        if length != wanted:  # only the header is skipped, as every reader does
            continue
        if at + length > data.size:
            raise ValueError(text_of(_CUT_SHORT))
        features.append(data[at:at + length].tobytes())
        at += length
    return features


def _number(data: Bytes, field: slice) -> int:
    return int.from_bytes(data[field].tobytes(), "little")
