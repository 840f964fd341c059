#!/usr/bin/env python3
"""Checks that a page holds the example program, and that the picture it writes shows its line of text.

usage: host_example.py PAGE SOURCE PROGRAM
"""
import subprocess
import sys
from pathlib import Path

WIDTH, HEIGHT = 260, 40
TEXT = 'A line of text'
INK = (0x20, 0x30, 0x80)


def columns_with_ink(pixels):
    return [x for x in range(WIDTH) if any(pixels[y * WIDTH + x] != (255, 255, 255, 255) for y in range(HEIGHT))]


def main(page, source, program):
    assert f'```cpp\n{Path(source).read_text()}```' in Path(page).read_text(), f'{page} does not hold {source}'
    data = subprocess.run([program], check=True, capture_output=True, timeout=60).stdout
    assert len(data) == 4 * WIDTH * HEIGHT, f'{len(data)} bytes'
    pixels = [tuple(data[i:i + 4]) for i in range(0, len(data), 4)]
    assert all(pixel[3] == 255 for pixel in pixels), 'the buffer has become transparent'
    for pixel in set(pixels):  # each is a mixture of the ink and the white below it
        cover = (255 - pixel[0]) / (255 - INK[0])
        assert all(abs(255 - cover * (255 - ink) - part) <= 3 for part, ink in zip(pixel, INK)), f'a pixel {pixel}'
    assert min(pixels)[0] <= INK[0] + 32, f'the darkest pixel is {min(pixels)}'
    inked = columns_with_ink(pixels)
    gaps = sum(b - a > 4 for a, b in zip(inked, inked[1:]))
    assert gaps == TEXT.count(' '), f'{gaps + 1} words'
    assert 10 <= inked[0] <= 14 and 130 <= inked[-1] <= 180, f'the text goes from {inked[0]} to {inked[-1]}'
    rows = [y for y in range(HEIGHT) if any(p != (255, 255, 255, 255) for p in pixels[y * WIDTH:(y + 1) * WIDTH])]
    assert 5 <= rows[0] and rows[-1] <= 34, f'the text goes down from {rows[0]} to {rows[-1]}'


main(*sys.argv[1:])
