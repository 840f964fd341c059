#!/usr/bin/env python3
"""Checks the corpora in a folder: sizes must lie in their range, contents should match the digests in `digests`.

A package that has moved on gives other texts: a differing digest is a warning. A size out of range is an error (status 1).
"""
import hashlib
import sys
from pathlib import Path

SMALLEST, LARGEST = 400_000, 1_600_000


def main():
    folder = Path(sys.argv[1])
    failed = False
    for line in (Path(__file__).parent / 'digests').read_text().splitlines():
        digest, name = line.split()
        path = folder / name
        if not path.exists():
            continue
        data = path.read_bytes()
        print(f'{name:16} {len(data):8} bytes {data.count(10):6} lines')
        if not SMALLEST <= len(data) <= LARGEST:
            print(f'fetch: {name}: {len(data)} bytes, expected {SMALLEST} to {LARGEST}', file=sys.stderr)
            failed = True
        elif not hashlib.sha256(data).hexdigest().startswith(digest):
            print(f'fetch: warning: {name} is not the text that the figures in bench/README.md were measured on', file=sys.stderr)
    return 1 if failed else 0


sys.exit(main())
