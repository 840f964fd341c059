#!/usr/bin/env python3
"""Reads the screen of a virtual X server (Xvfb -fbdir) and prints how many of its pixels are dark, and a digest of all.

Usage: framebuffer.py FILE
The file is in the format of xwd: a header of big-endian words, the colour map, the rows.
"""
import hashlib
import struct
import sys


def main():
    data = open(sys.argv[1], "rb").read()
    words = struct.unpack(">25I", data[:100])
    header, width, height, bits, row_bytes, colours = (words[i] for i in (0, 4, 5, 11, 12, 19))
    assert bits == 32, f"{bits} bits per pixel"
    start = header + colours * 12
    pixels = data[start:start + row_bytes * height]
    assert len(pixels) == row_bytes * height, "the file is short"
    dark = 0
    for y in range(height):
        row = pixels[y * row_bytes:y * row_bytes + width * 4]
        dark += sum(1 for value in row[1::4] if 0 < value < 96)  # the green byte; an empty screen is 0 throughout
    print(dark, hashlib.sha256(pixels).hexdigest()[:16])


main()
