"""The Python module, as its users call it."""
import mmap
import os
import pathlib
import subprocess
import sys

import numpy as np
import pytest

import vorquell

RANDOM = np.random.default_rng(1)


def plain_distances(targets: np.ndarray, features: np.ndarray) -> np.ndarray:
    """Every pair's share of differing bits, by unpacking all bits."""
    bits = np.unpackbits(targets[:, None, :] ^ features[None, :, :], axis=2)
    return bits.sum(axis=2) / bits.shape[2]


@pytest.mark.parametrize("length", [1, 7, 32, 100])
def test_distances_and_nearest_agree_with_unpacked_bits(length: int) -> None:
    targets = RANDOM.integers(0, 256, (5, length), dtype=np.uint8)
    features = RANDOM.integers(0, 256, (203, length), dtype=np.uint8)
    expected = plain_distances(targets, features)
    order = np.argsort(expected, axis=1, kind="stable")[:, :10]
    np.testing.assert_array_equal(vorquell.distances(targets, features), expected)
    found, indices = vorquell.nearest(targets, features, threads=2)
    np.testing.assert_array_equal(indices, order)
    np.testing.assert_array_equal(found, np.take_along_axis(expected, order, axis=1))
    one, one_index = vorquell.nearest(targets[2], features, 10)
    np.testing.assert_array_equal(one_index, order[2])
    np.testing.assert_array_equal(one, found[2])


def test_all_kinds_of_buffers_are_taken(tmp_path: pathlib.Path) -> None:
    features = RANDOM.integers(0, 256, (40, 8), dtype=np.uint8)
    raw, path = features.tobytes(), tmp_path / "features"
    path.write_bytes(raw)
    target = features[3]
    expected = vorquell.distances(target, features)
    with open(path, "rb") as file, mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ) as mapped:
        for given in (raw, bytearray(raw), memoryview(raw), memoryview(raw).cast("B", (40, 8)),
                      mapped, np.memmap(path, mode="r"), np.memmap(path, shape=(40, 8), mode="r"),
                      np.asfortranarray(features)):
            np.testing.assert_array_equal(vorquell.distances(target.tobytes(), given), expected)
            del given
    np.testing.assert_array_equal(vorquell.distances(target, np.repeat(features, 2, 0)[::2]),
                                  expected)


@pytest.mark.parametrize("m, n, k, shape", [(3, 5, 2, (3, 2)), (3, 5, 9, (3, 5)), (0, 5, 2, (0, 2)),
                                            (3, 0, 2, (3, 0)), (None, 5, 10**30, (5,)),
                                            (None, 0, 1, (0,))])
def test_shapes_follow_the_counts(m: int | None, n: int, k: int, shape: tuple[int, ...]) -> None:
    targets = np.zeros((4,) if m is None else (m, 4), dtype=np.uint8)
    features = np.zeros((n, 4), dtype=np.uint8)
    found, indices = vorquell.nearest(targets, features, k)
    assert (found.shape, indices.shape) == (shape, shape)
    assert (found.dtype, indices.dtype) == (np.float64, np.int64)
    assert vorquell.distances(targets, features).shape == shape[:-1] + (n,)


FEATURES = np.zeros((3, 4), dtype=np.uint8)


@pytest.mark.parametrize("error, words, call", [
    (TypeError, "targets: got list", lambda: vorquell.nearest([1, 2], FEATURES)),
    (TypeError, "features: got str", lambda: vorquell.distances(b"1234", "12345678")),
    (TypeError, "features: got dtype bool, want uint8",
     lambda: vorquell.distances(b"1234", FEATURES.astype(bool))),
    (TypeError, "target: got dtype int32", lambda: vorquell.distance(np.int32([1]), b"1234")),
    (ValueError, r"features: got shape \(3, 4\), want \(n, 5\)",
     lambda: vorquell.nearest(b"12345", FEATURES)),
    (ValueError, r"features: got shape \(9,\), want \(n, 4\)",
     lambda: vorquell.nearest(b"1234", bytes(9))),
    (ValueError, r"targets: got shape \(1, 3, 4\)", lambda: vorquell.nearest(FEATURES[None], b"")),
    (ValueError, r"target: got shape \(\)", lambda: vorquell.distance(np.array(1, "u1"), b"1")),
    (ValueError, r"target: got shape \(3, 4\)", lambda: vorquell.match(FEATURES, b"1234")),
    (ValueError, "targets: got length 0, want 1 to 268435455",
     lambda: vorquell.distances(b"", b"1234")),
    (ValueError, "targets: got length 268435456",
     lambda: vorquell.nearest(np.zeros(1 << 28, dtype=np.uint8), b"")),
    (ValueError, "k: got 0, want 1", lambda: vorquell.nearest(b"1234", FEATURES, 0)),
    (TypeError, "k: got float, want an integer", lambda: vorquell.nearest(b"1234", FEATURES, 2.0)),
    (ValueError, "threads: got -1", lambda: vorquell.distances(b"1234", FEATURES, threads=-1)),
    (ValueError, "target: got length 0", lambda: vorquell.distance(b"", b"1")),
    (ValueError, "Neither a feature", lambda: vorquell.distance(b"1234", b"123")),
    (ValueError, "cut short", lambda: vorquell.distance(b"1234", vorquell.wrap([b"1234"])[:-1])),
    (ValueError, "features: got 0, want 1 to 1500", lambda: vorquell.wrap([])),
    (ValueError, "features: got 1501", lambda: vorquell.wrap([b"1"] * 1501)),
    (ValueError, r"features: got lengths \[1, 2\]", lambda: vorquell.wrap([b"1", b"", b"22"])),
    (TypeError, r"features: got bytes of shape \(4,\), want \(n, length\)",
     lambda: vorquell.wrap(b"1234")),
    (TypeError, "features: got mmap", lambda: vorquell.wrap(mmap.mmap(-1, 4))),
    (TypeError, "features: got ndarray", lambda: vorquell.wrap(np.array([b"1\0", b"2\0"]))),
    (ValueError, "length: got 0", lambda: vorquell.unwrap(vorquell.wrap([b"1"]), 0)),
    (ValueError, "Neither a feature", lambda: vorquell.unwrap(b"1234567", 1)),
    (ValueError, "cut short", lambda: vorquell.unwrap(vorquell.wrap([b"12"])[:217], 2)),
    (ValueError, "cut short", lambda: vorquell.unwrap(vorquell.wrap([b"12"])[:67], 2)),
])
def test_wrong_arguments_are_named(error: type[Exception], words: str, call) -> None:
    with pytest.raises(error, match=words):
        call()


def test_bitstreams_are_wrapped_and_unwrapped() -> None:
    features = [bytes([i]) * 5 for i in range(4)]
    stream = vorquell.wrap([features[0], b"", *features[1:]])
    assert vorquell.unwrap(stream, 5) == features
    assert vorquell.match(features[2], stream) == (0.0, 3)
    assert vorquell.unwrap(stream, 4) == []
    pairs = np.uint8([[1, 2], [3, 4]])
    assert vorquell.unwrap(vorquell.wrap(pairs), 2) == [b"\1\2", b"\3\4"]
    for same in (memoryview(pairs), np.asfortranarray(pairs), np.array([b"\1\2", b"\3\4"], "O")):
        assert vorquell.wrap(same) == vorquell.wrap(pairs)
    assert vorquell.unwrap(stream[:4] + b"\x08\0\0\0", 5) == []
    assert vorquell.distance(b"\0\0", b"\0\x03") == 0.125


def run(code: str, **environment: str) -> subprocess.CompletedProcess[str]:
    return subprocess.run([sys.executable, "-c", code], env={**os.environ, **environment},
                          capture_output=True, text=True)


def test_a_missing_library_says_what_to_do(tmp_path: pathlib.Path) -> None:
    result = run("import vorquell", VORQUELL_LIBRARY_DIR=str(tmp_path))
    assert "ImportError" in result.stderr
    assert "install the package libvorquell1, or set VORQUELL_LIBRARY_DIR" in result.stderr


def test_nothing_is_printed_and_no_contiguous_input_copied() -> None:
    # Address space for the features and little more: a copy would not fit.
    result = run("import resource, numpy, vorquell\n"
                 "features = numpy.zeros((1 << 20, 256), numpy.uint8)\n"
                 "used = int(open('/proc/self/statm').read().split()[0]) * 4096\n"
                 "resource.setrlimit(resource.RLIMIT_AS, (used + (200 << 20),) * 2)\n"
                 "vorquell.nearest(features[0], features, threads=1)\n"
                 "vorquell.nearest(features[0], memoryview(features), threads=1)\n")
    assert (result.returncode, result.stdout, result.stderr) == (0, "", "")


def test_version_is_the_projects() -> None:
    assert vorquell.__version__ == os.environ["VORQUELL_VERSION"]
