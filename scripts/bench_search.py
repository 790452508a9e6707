"""Measures the search beside others; see scripts/bench_search.

bench_search.py libraries BUILD [TARGETS [FEATURES]]
bench_search.py programs BUILD
"""
import ctypes
import os
import statistics
import subprocess
import sys
import tempfile
import time

K = 10
MATCH = [("index", "u8"), ("distance", "f8")]


def libraries(build, target_count=1000, feature_count=100_000):
    import cv2
    import faiss
    import numpy as np

    cv2.setNumThreads(1)
    faiss.omp_set_num_threads(1)
    nearest = ctypes.CDLL(f"{build}/libORV_Search.so").ORV_Nearest

    def ours(targets, features):
        matches = np.empty((len(targets), K), MATCH)
        size = ctypes.c_uint64
        status = nearest(
            targets.ctypes.data_as(ctypes.c_void_p), size(len(targets)),
            features.ctypes.data_as(ctypes.c_void_p), size(len(features)),
            size(targets.shape[1]), size(K), ctypes.c_uint(1),
            matches.ctypes.data_as(ctypes.c_void_p))
        assert status == 0, status
        return np.rint(matches["distance"] * 8 * targets.shape[1])

    def faiss_search(targets, features):
        index = faiss.IndexBinaryFlat(8 * targets.shape[1])
        index.add(features)
        begin = time.thread_time()
        distances, _ = index.search(targets, K)
        return distances, time.thread_time() - begin

    def opencv_search(targets, features):
        matcher = cv2.BFMatcher(cv2.NORM_HAMMING)
        begin = time.thread_time()
        rows = matcher.knnMatch(targets, features, K)
        elapsed = time.thread_time() - begin
        return np.array([[match.distance for match in row] for row in rows]), elapsed

    def timed_ours(targets, features):
        begin = time.thread_time()
        distances = ours(targets, features)
        return distances, time.thread_time() - begin

    print("  bytes   ours  faiss opencv  ns a pair, the best of some runs, and the faster over ours")
    random = np.random.default_rng(1)
    for length in (32, 64, 256, 2048):
        targets = random.integers(0, 256, (target_count, length), np.uint8)
        features = random.integers(0, 256, (feature_count, length), np.uint8)
        best = []
        for search, runs in ((timed_ours, 5), (faiss_search, 2), (opencv_search, 2)):
            results = [search(targets, features) for _ in range(runs)]
            wanted = results[0][0] if search is timed_ours else wanted
            assert np.array_equal(results[0][0], wanted), search.__name__
            best.append(min(elapsed for _, elapsed in results) / targets.shape[0] / len(features))
        print(f"{length:7} " + " ".join(f"{1e9 * one:6.2f}" for one in best)
              + f"  {min(best[1:]) / best[0]:6.1f}", flush=True)


def wall(command):
    begin = time.perf_counter()
    subprocess.run(["/bin/sh", "-c", command], check=True, stdout=subprocess.DEVNULL)
    return time.perf_counter() - begin


def compare(name, ours, other, runs=9):
    wall(ours), wall(other)
    pairs = [(wall(ours), wall(other)) for _ in range(runs)]
    ratio = statistics.median(a / b for a, b in pairs)
    print(f"{name}: {1e3 * min(a for a, _ in pairs):.0f} ms, the other "
          f"{1e3 * min(b for _, b in pairs):.0f} ms, ratio {ratio:.2f}", flush=True)


def programs(build):
    search, tool = os.path.abspath(f"{build}/VorquellSearch"), os.path.abspath(f"{build}/Vorquell")
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        block = os.urandom(1 << 24)
        with open("packed", "wb") as packed:
            for _ in range(64):
                packed.write(block)
        with open("target", "wb") as target:
            target.write(os.urandom(256))
        os.mkdir("queries")
        for i in range(100_000):
            with open(f"queries/{i:06}", "wb") as query:
                query.write(block[i:i + 256])
        with open("list", "w") as names:
            names.write("".join(f"queries/{i:06}\0" for i in range(100_000)))

        compare("1 GiB packed, over cat", f"exec {search} -k 10 --packed packed target",
                "exec cat packed > /dev/null")
        compare("1 GiB through a pipe, over cat",
                f"cat packed | {search} -k 10 --packed - target", "cat packed | cat > /dev/null")
        compare("100000 files, over xargs cat", f"exec {search} -k 10 --files0-from list target",
                "exec xargs -0 cat < list > /dev/null")
        compare("start 100 times, over Vorquell",
                f"for i in $(seq 100); do {search} target target; done",
                f"for i in $(seq 100); do {tool} target target; done")


if sys.argv[1] == "libraries":
    libraries(sys.argv[2], *map(int, sys.argv[3:]))
else:
    programs(sys.argv[2])
