"""The shared library: where it is, and what its functions take."""
import ctypes
import os
from ctypes import POINTER, c_char_p, c_int, c_uint, c_uint64, c_void_p

_NAME = "libORV_Search.so.1"


class Match(ctypes.Structure):
    """ORV_Match."""

    _fields_ = [("index", c_uint64), ("distance", ctypes.c_double)]


def _load() -> ctypes.CDLL:
    folder = os.environ.get("VORQUELL_LIBRARY_DIR")
    try:
        return ctypes.CDLL(os.path.join(folder, _NAME) if folder else _NAME)
    except OSError as error:
        raise ImportError(
            f"{error}: install the package libvorquell1, or set VORQUELL_LIBRARY_DIR to the folder "
            f"that holds {_NAME}") from error


library = _load()
library.ORV_SearchText.restype = c_char_p
library.ORV_SearchText.argtypes = [c_int]
library.ORV_MatchQuery.argtypes = [c_void_p, c_uint64, c_void_p, c_uint64, POINTER(Match)]
library.ORV_Distances.argtypes = [
    c_void_p, c_uint64, c_void_p, c_uint64, c_uint64, c_uint, c_void_p]
library.ORV_Nearest.argtypes = [
    c_void_p, c_uint64, c_void_p, c_uint64, c_uint64, c_uint64, c_uint, c_void_p]

_OUT_OF_MEMORY = -5


def check(status: int) -> None:
    """Raises what a status other than 0 means."""
    if status == _OUT_OF_MEMORY:
        raise MemoryError(text_of(status))
    if status != 0:
        raise ValueError(text_of(status))


def text_of(status: int) -> str:
    """The library's words for a status."""
    text: bytes = library.ORV_SearchText(status)
    return text.decode()
