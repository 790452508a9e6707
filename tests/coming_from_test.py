"""Runs both sides of each row of docs/coming-from.md: coming_from_test.py BRIDGE VORQUELL PAGE"""
import ctypes, os, pathlib, re, subprocess, sys, tempfile
from ctypes import byref

try:
    import cv2, numpy as np, skimage.color as sk
    from scipy import spatial, special
except ImportError as error:
    print(f"skipped: {error}; wanted: python3-opencv, python3-scipy, python3-skimage")
    sys.exit(77)

bridge, tool, page = ctypes.CDLL(sys.argv[1]), sys.argv[2], pathlib.Path(sys.argv[3]).read_text()
bridge.find.restype = ctypes.c_void_p
AS_C = {float: ctypes.c_double, np.float32: ctypes.c_float, str: str.encode,
        np.ndarray: lambda array: array.ctypes}


def call(name, *arguments, gives=ctypes.c_int):
    function = ctypes.CFUNCTYPE(gives)(bridge.find(name.encode()))
    return function(*(AS_C.get(type(a), lambda a: a)(a) for a in arguments))


def real(*arguments): return call(*arguments, gives=ctypes.c_double)
def true(*arguments): return call(*arguments, gives=ctypes.c_bool)
def text(*arguments): return call(*arguments, gives=ctypes.c_char_p).decode()
def mine(name, colours): return [filled(np.empty(3), name, colour.copy()) for colour in colours]
def pairs(name): return [real(name, *pair.copy()) for pair in BGR.reshape(-1, 2, 3)]
def cvt(code, colours, kind=np.float32): return cv2.cvtColor(kind(colours)[None], code)[0]
def near(a, b, most=1e-9): np.testing.assert_allclose(a, b, rtol=0, atol=most)
def same(a, b): np.testing.assert_equal(a, b)
def differ(a, b): assert not np.array_equal(a, b), f"both are {a}"
def sh(command): return subprocess.run(command, shell=True, capture_output=True, text=True)
def rows(matrix): return (ctypes.c_void_p * len(matrix))(*(row.ctypes.data for row in matrix))
def fresh(): sh("rm -rf *; mkdir -p t/b/c out; echo x > t/f; echo y > g; chmod 755 g; "
                "touch empty out/kept; ln -s ../../../out t/b/c/link")


def filled(array, name, *arguments):
    call(name, *arguments, array)
    return array


def turned(name, *sizes):
    pixels = np.zeros_like(IMAGE)
    call(name, IMAGE, *sizes, IMAGE.size, byref(ctypes.c_void_p(pixels.ctypes.data)))
    return pixels


def columns_from(x):
    copy = np.zeros_like(PLANE)
    call("copyImageAnywhere", PLANE, 8, 6, 8, 1, x, 0, 8, 6, copy, 8, 6, 8, x, 0, False, MASK, 8)
    return copy


def packed(mask):
    block, length = ctypes.c_void_p(), ctypes.c_ulong()
    call("byte2BitData", mask, *mask.shape[::-1], byref(block), byref(length))
    return np.frombuffer(ctypes.string_at(block, length.value), np.uint8).reshape(len(mask), -1)


def mean_and_spread(data):
    mean, spread = ctypes.POINTER(ctypes.c_float)(), ctypes.c_float()
    call("findMeanAndSD", data, *data.shape[::-1], byref(mean), byref(spread))
    return [*mean[:data.shape[1]], spread.value]


def walk(folder):
    paths, count = ctypes.POINTER(ctypes.c_char_p)(), ctypes.c_int()
    call("xDirWalking", folder, byref(paths), byref(count), 2, True)
    return [path.decode() for path in paths[:count.value]]


os.umask(0o022)
rng = np.random.default_rng(1)
A, B = rng.integers(0, 256, (2, 64), np.uint8)
BGR, GREY, BLUE, WHITE = rng.random((200, 3)), np.full((1, 3), .5), np.eye(1, 3), np.ones((1, 3))
RGB, LAB = BGR[:, ::-1], sk.rgb2lab(BGR[:, ::-1]).reshape(-1, 2, 3)
LINEAR = np.where(BGR <= .04045, BGR / 12.92, ((BGR + .055) / 1.055) ** 2.4)
IMAGE, PLANE = rng.integers(1, 256, (5, 7, 3), np.uint8), rng.integers(1, 256, (6, 8), np.uint8)
MASK, BLOB = np.uint8(rng.random((6, 8)) < .5), np.uint8(255 * (rng.random((20, 20)) < .9))
FULL, MASKED = np.full((9, 9), 255, np.uint8), cv2.copyTo(PLANE, MASK, np.zeros_like(PLANE))
POINTS = np.int32([[0, 0], [0, 3], [1, 1], [4, 0], [4, 3]])
SQUARE = np.float32([[0, 0], [1, 0], [1, 1], [0, 1]])
ARROW = np.int32([[0, 0], [4, 0], [1, 1], [0, 4]])
SIDES = [(.5, .5), (0, .5), (1, .5), (.5, 0), (.5, 1), (2, 2)]
NINE, SMALL, VALUES = np.arange(1., 10).reshape(3, 3), np.eye(2) * 1e-4, rng.random(50)
DATA = np.float32(rng.random((9, 3)))


def libraries():
    copied, packs = [columns_from(x) for x in (0, 2)], [packed(mask) for mask in (BLOB, MASK)]
    blob, full, inverse = BLOB.copy(), FULL.copy(), np.ones((2, 2))
    call("erosion", blob, 20, 20)
    call("erosion", full, 9, 9)
    inside = [true("pointInPolygon2D", SQUARE.astype(float), 4, np.float64(p), 1) for p in SIDES]
    hull = filled(np.zeros(12, np.int32), "chainHull_2D", POINTS, 5)
    index, score = np.arange(50, dtype=np.int32), real("calculateScores", A, B, 64)
    call("quickSort", VALUES.copy(), index, 50)
    call("matrixInv2D", rows(SMALL), rows(inverse))
    mapped = [filled(np.zeros(1, np.float32), "mapValue", *np.float32([0, 1, x, 2, 4]))
              for x in (.25, 2)]
    return {
        "norm(a, b, NORM_HAMMING)":
            same(cv2.norm(A, B, cv2.NORM_HAMMING) / (8 * 64), score),
        "cvtColor(…, COLOR_BGR2HSV)":
            (near(cvt(cv2.COLOR_BGR2HSV, BGR), mine("BGR2HSV", BGR), 1e-3),
             same(cvt(cv2.COLOR_BGR2HSV, 255 * BLUE, np.uint8), [[120, 255, 255]]),
             same(mine("BGR2HSV", BLUE), [[240, 1, 1]]),
             same(cvt(cv2.COLOR_BGR2HSV, GREY), [[0, 0, .5]]),
             same(mine("BGR2HSV", GREY), [[-1, 0, .5]])),
        "cvtColor(…, COLOR_BGR2YUV)":
            near(cvt(cv2.COLOR_BGR2YUV, BGR) - [0, .5, .5], mine("BGR2YUV", BGR), 3e-4),
        "cvtColor(…, COLOR_BGR2XYZ)":
            near(100 * cvt(cv2.COLOR_BGR2XYZ, LINEAR), mine("BGR2XYZ", BGR), .03),
        "cvtColor(…, COLOR_BGR2Lab)":
            (near(cvt(cv2.COLOR_BGR2Lab, BGR), mine("BGR2Lab", BGR), .3),
             same(cvt(cv2.COLOR_BGR2Lab, 255 * WHITE, np.uint8), [[255, 128, 128]]),
             near(mine("BGR2Lab", WHITE), [[100, 0, 0]], .02)),
        "cvtColor(…, COLOR_BGR2RGB)":
            same(cv2.cvtColor(IMAGE, cv2.COLOR_BGR2RGB), turned("xSwapImageDataOrder", 7, 5, 21)),
        "flip(image, 0)": same(cv2.flip(IMAGE, 0), turned("xImageUpsideDown", 5, 21)),
        "copyTo(image, mask, target)":
            (same(MASKED, copied[0]), same(MASKED[:, 2:6], copied[1][:, 2:6]),
             differ(MASKED[:, 6:], copied[1][:, 6:]), same(copied[1][:, 6:], 0)),
        "erode(mask, ones(3, 3))":
            (same(cv2.erode(BLOB, np.ones((3, 3)), borderType=cv2.BORDER_CONSTANT, borderValue=0),
                  blob),
             same(np.count_nonzero(cv2.erode(FULL, None)), 81), same(np.count_nonzero(full), 49)),
        "convexHull(points)":
            (same(cv2.convexHull(POINTS)[:, 0], [[4, 3], [0, 3], [0, 0], [4, 0]]),
             same(hull, [0, 0, 4, 0, 4, 3, 0, 3, 0, 0, 0, 0])),
        "pointPolygonTest(polygon, point, False)":
            (same([cv2.pointPolygonTest(SQUARE, p, False) for p in SIDES], [1, 0, 0, 0, 0, -1]),
             same(inside, [True, False, True, False, True, False])),
        "isContourConvex(polygon)":
            (same(cv2.isContourConvex(ARROW), False),
             same(true("is2DConvexPolygon", ARROW * 1., 4, False), True)),
        "scipy.spatial.distance.hamming(u, v)":
            (same(spatial.distance.hamming(*np.unpackbits([A, B], axis=1)), score),
             differ(spatial.distance.hamming(A, B), score)),
        "numpy.packbits(mask, axis=1)":
            (same(np.packbits(BLOB != 0, axis=1), packs[0]), differ(MASK, 0), same(packs[1], 0)),
        "numpy.linalg.det(M)":
            (near(np.linalg.det(NINE), 0, 1e-15), differ(np.linalg.det(NINE), 0),
             same(real("matrixDet", rows(NINE), 3), 0.)),
        "numpy.linalg.inv(M)":
            (near(np.linalg.inv(SMALL), np.eye(2) * 1e4), same(inverse, 0)),
        "numpy.argsort(a)": same(np.argsort(VALUES), index),
        "numpy.mean(a, axis=0)":
            near(mean_and_spread(DATA), [*DATA.mean(axis=0), np.sqrt(DATA.var(axis=0).sum())],
                 1e-6),
        "numpy.interp(x, (a, b), (c, d))":
            (near(mapped, [[2.5], [6]], 1e-6),
             same(np.interp([.25, 2], (0, 1), (2, 4)), [2.5, 4])),
        "scipy.special.expit(x)": near(real("analyticHeaviside", .3, .7), special.expit(.42)),
        "rgb2hsv":
            (near(sk.rgb2hsv(RGB) * [360, 1, 1], mine("BGR2HSV", BGR)),
             same(sk.rgb2hsv(GREY), [[0, 0, .5]])),
        "rgb2xyz": near(100 * sk.rgb2xyz(RGB), mine("BGR2XYZ", BGR), .03),
        "rgb2lab": near(sk.rgb2lab(RGB), mine("BGR2Lab", BGR), .02),
        "deltaE_cie76": near(sk.deltaE_cie76(LAB[:, 0], LAB[:, 1]), pairs("CIEDeltaE76"), .03),
        "deltaE_ciede94": near(sk.deltaE_ciede94(LAB[:, 0], LAB[:, 1]), pairs("CIEDeltaE94"), .03),
        "deltaE_ciede2000":
            (near(sk.deltaE_ciede2000(LAB[:, 0], LAB[:, 1]), pairs("CIEDE2000"), .03),
             differ(pairs("CIEDE2000"), pairs("CIEDeltaE2000"))),
    }


def file_tools():
    fresh()
    cmp, distance = [(run.returncode, run.stdout) for run in (sh("cmp t/f g"), sh(f"{tool} t/f g"))]
    cat = sh("cat t/f g > joined").returncode, call("xConcatBinaryFiles", "t/f", "g", "here")
    joined = tuple(pathlib.Path(name).read_bytes() for name in ("joined", "here"))
    found, ours = sh("find t -mindepth 1 | LC_ALL=C sort").stdout.splitlines(), walk("t")
    theirs = text("recursive_directory_iterator", "t").splitlines()
    parts = [[text(name, path) for name, path in zip(of, ("a.gz", "dir.d/readme", "a/b/"))]
             for of in (["extension"] * 2 + ["filename"],
                        ["xGetFileExtension"] * 2 + ["xGetFileNameExtension"])]
    uniform = [text(name, "a/./b\\c//../d") for name in ("lexically_normal", "xUniformFilePath")]
    exist = [true(name, path) for path in ("t", "none") for name in ("exists", "xIsFileExist")]
    made = [sh("mkdir -p one").returncode, os.path.isdir("one"), true("xCreateNestedDir", "new"),
            os.path.isdir("new"), true("xCreateNestedDir", "./n/m"), os.path.isdir("n/m"),
            true("xCreateNestedDir", "new/m")]
    again = [true(name, "./n/m") for name in ("create_directories", "xCreateNestedDir")]

    def copy(run):  # the mode of a copy, and what is left where an empty file is the source
        fresh()
        done = run("g", "mode"), run("empty", "t/f")
        return os.stat("mode").st_mode & 0o111, os.path.exists("t/f"), done

    def removal(run):
        fresh()
        return run("t"), os.path.exists("t"), os.path.exists("out/kept")

    cp = copy(lambda a, b: sh(f"cp {a} {b}").returncode)
    copy_file = copy(lambda a, b: true("copy_file", a, b))
    x_copy = copy(lambda a, b: call("xFileCopy", a, b, True))
    rm = removal(lambda folder: sh(f"rm -r {folder}").returncode)
    remove_all = removal(lambda folder: call("remove_all", folder))
    x_delete = removal(lambda folder: call("xDeleteDir", folder))
    return {
        "cmp a b": (same((cmp[0], "differ" in cmp[1]), (1, True)),
                    same(distance, (0, "main: Return distance = 0.062500\n"))),
        "cp a b": (same(cp, (0o111, True, (0, 0))), same(x_copy, (0, False, (0, -1)))),
        "cat a b > c": (same(cat, (0, 0)), same(joined, (b"x\ny\n", b"x\ny\n"))),
        "mkdir -p a": same(made, [0, True, True, False, True, True, False]),
        "rm -r a": (same(rm, (0, False, True)), same(x_delete, (-1, True, False))),
        "find a": (same(sorted(ours), found), same(ours, ["t/b", "t/f", "t/b/c", "t/b/c/link"])),
        "path::extension":
            (same(parts[0][:2], [".gz", ""]), same(parts[1][:2], ["gz", "d/readme"])),
        "path::filename": same((parts[0][2], parts[1][2]), ("", "b")),
        "path::lexically_normal": same(uniform, ["a/d", "a/./b/c/../d"]),
        "create_directories": same(again, [False, True]),
        "remove_all": same(remove_all, (5, False, True)),
        "copy_file": same(copy_file, (0o111, True, (True, True))),
        "exists": same(exist, [True, True, False, False]),
        "recursive_directory_iterator": same(sorted(theirs), found),
    }


tool = os.path.abspath(tool)
with tempfile.TemporaryDirectory() as scratch:
    os.chdir(scratch)
    run = {**libraries(), **file_tools()}.keys()
    os.chdir("/")
told = dict(re.findall(r"^\| `([^`]+)` (†?)", page, re.MULTILINE))
same(sorted(run), sorted(row for row, mark in told.items() if not mark))
