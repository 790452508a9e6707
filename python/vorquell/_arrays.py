"""What users pass, as arrays of bytes that the library can read."""
import operator
from typing import Any, SupportsIndex, Union

import numpy as np
from numpy.typing import NDArray

Bytes = NDArray[np.uint8]
#: ``bytes``, ``memoryview``, ``mmap``, ``numpy.memmap``, an array of ``uint8``: what has a buffer.
BytesLike = Any
#: The most bytes of a feature that can be compared.
LONGEST = 2**28 - 1


def as_bytes(value: BytesLike, name: str) -> Bytes:
    """The bytes of `value`, with its shape; copied only when they are not C-contiguous."""
    array: NDArray[Any]
    if isinstance(value, np.ndarray):
        array = value
    else:
        try:
            array = np.asarray(memoryview(value))
        except TypeError:
            raise TypeError(f"{name}: got {type(value).__name__}, want an array of uint8 or a "
                            "bytes-like object") from None
    if array.dtype != np.uint8:
        raise TypeError(f"{name}: got dtype {array.dtype}, want uint8")
    return array if array.flags.c_contiguous else np.ascontiguousarray(array)


def as_flat(value: BytesLike, name: str) -> Bytes:
    """The bytes of one feature or bitstream."""
    array = as_bytes(value, name)
    if array.ndim != 1:
        raise ValueError(f"{name}: got shape {array.shape}, want one dimension")
    return array


def as_target(value: BytesLike) -> Bytes:
    """The bytes of one target."""
    array = as_flat(value, "target")
    _check_length(array, "target")
    return array


def as_targets(value: BytesLike) -> Bytes:
    """Targets as (m, length); a single one as (length,)."""
    array = as_bytes(value, "targets")
    if array.ndim not in (1, 2):
        raise ValueError(f"targets: got shape {array.shape}, want (m, length) or (length,)")
    _check_length(array, "targets")
    return array


def _check_length(targets: Bytes, name: str) -> None:
    if not 1 <= targets.shape[-1] <= LONGEST:
        raise ValueError(f"{name}: got length {targets.shape[-1]}, want 1 to {LONGEST}")


def as_features(value: BytesLike, length: int) -> Bytes:
    """Features of `length` bytes as (n, length)."""
    array = as_bytes(value, "features")
    if array.ndim == 1 and array.size % length == 0:
        return array.reshape(-1, length)
    if array.ndim == 2 and array.shape[1] == length:
        return array
    raise ValueError(f"features: got shape {array.shape}, want (n, {length}), or n * {length} "
                     f"bytes, as the target has {length}")


def as_count(value: SupportsIndex, name: str, least: int) -> int:
    """A whole number from `least` on."""
    try:
        count = operator.index(value)
    except TypeError:
        raise TypeError(f"{name}: got {type(value).__name__}, want an integer") from None
    if count < least:
        raise ValueError(f"{name}: got {count}, want {least} or more")
    return count


def address(array: NDArray[Any]) -> Union[int, None]:
    """Where the array begins; None for an empty one, of which nothing is read."""
    return array.ctypes.data if array.size > 0 else None
