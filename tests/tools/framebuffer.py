#!/usr/bin/env python3
"""Reads the screen of a virtual X server (Xvfb -fbdir) and prints how many of its pixels are dark, and a digest of all.

Usage: framebuffer.py FILE                      of the whole screen
       framebuffer.py FILE X Y WIDTH HEIGHT PNG  writes that part as a picture instead
The file is in the format of xwd: a header of big-endian words, the colour map, the rows.
"""
import hashlib
import struct
import sys
import zlib


def write_png(path, rows, width, height):
    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    with open(path, "wb") as file:
        file.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
                   chunk(b"IDAT", zlib.compress(b"".join(b"\0" + row for row in rows))) + chunk(b"IEND", b""))


def part(pixels, row_bytes, x, y, width, height):
    """Rows of red, green and blue bytes; the screen's are blue, green, red and one unused."""
    for line in range(y, y + height):
        row = pixels[line * row_bytes + x * 4:line * row_bytes + (x + width) * 4]
        colours = bytearray(3 * width)
        colours[0::3], colours[1::3], colours[2::3] = row[2::4], row[1::4], row[0::4]
        yield bytes(colours)


def main():
    data = open(sys.argv[1], "rb").read()
    words = struct.unpack(">25I", data[:100])
    header, width, height, bits, row_bytes, colours = (words[i] for i in (0, 4, 5, 11, 12, 19))
    assert bits == 32, f"{bits} bits per pixel"
    start = header + colours * 12
    pixels = data[start:start + row_bytes * height]
    assert len(pixels) == row_bytes * height, "the file is short"
    if len(sys.argv) > 2:
        x, y, wide, high = map(int, sys.argv[2:6])
        assert 0 <= x and x + wide <= width and 0 <= y and y + high <= height, "the part is not on the screen"
        write_png(sys.argv[6], part(pixels, row_bytes, x, y, wide, high), wide, high)
        return
    dark = 0
    for y in range(height):
        row = pixels[y * row_bytes:y * row_bytes + width * 4]
        dark += sum(1 for value in row[1::4] if 0 < value < 96)  # the green byte; an empty screen is 0 throughout
    print(dark, hashlib.sha256(pixels).hexdigest()[:16])


main()
