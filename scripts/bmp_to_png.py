"""Turns the gallery's BMP files into PNG files: bmp_to_png.py FOLDER BMP..."""
import pathlib
import struct
import sys
import zlib


def chunk(kind: bytes, data: bytes) -> bytes:
    body = kind + data
    return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))


def differences(row: bytes) -> bytes:
    """Returns each byte less the one of the pixel before, which compresses better."""
    return row[:3] + bytes((b - a) % 256 for a, b in zip(row, row[3:]))


def png(bmp: bytes) -> bytes:
    """Returns an uncompressed 24-bit BMP, rows from bottom to top, as a PNG."""
    width, height = struct.unpack_from("<ii", bmp, 18)
    pixels = bytearray(bmp[54:])
    pixels[0::3], pixels[2::3] = pixels[2::3], pixels[0::3]
    stride = 3 * width
    rows = (b"\1" + differences(pixels[y * stride:(y + 1) * stride])
            for y in reversed(range(height)))
    return (b"\x89PNG\r\n\x1a\n"
            + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(b"".join(rows), 9))
            + chunk(b"IEND", b""))


folder = pathlib.Path(sys.argv[1])
for name in map(pathlib.Path, sys.argv[2:]):
    (folder / name.with_suffix(".png").name).write_bytes(png(name.read_bytes()))
