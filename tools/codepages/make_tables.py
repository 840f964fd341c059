#!/usr/bin/env python3
"""Writes rtl/CodePages.inc: what each byte of the single-byte Windows code pages stands for.

Every byte is converted by itself with iconv, so that a page whose letters combine (1255, 1258) still gives one unit for
one byte. A byte that iconv refuses stands for the unit of the same value. With --check nothing is written, and the exit
status says whether the file is as it would be made.
"""
import pathlib
import subprocess
import sys

PAGES = [874, *range(1250, 1259)]
TARGET = pathlib.Path(__file__).resolve().parents[2] / "rtl" / "CodePages.inc"


def unit_of(page, byte):
    run = subprocess.run(["iconv", "-f", f"CP{page}", "-t", "UTF-16BE"], input=bytes([byte]), capture_output=True)
    if run.returncode != 0:
        return byte
    if len(run.stdout) != 2:
        raise SystemExit(f"CP{page} {byte:02X}: not one unit")
    return int.from_bytes(run.stdout, "big")


def tables():
    version = subprocess.run(["iconv", "--version"], capture_output=True, text=True).stdout.splitlines()[0]
    lines = [f"// Made by tools/codepages/make_tables.py from {version}. Do not edit.", ""]
    lines.append(f"inline constexpr std::array<TUpperHalf, {len(PAGES)}> UpperHalves = {{{{")
    for page in PAGES:
        for byte in range(0x80):
            if unit_of(page, byte) != byte:
                raise SystemExit(f"CP{page}: the lower half is not ASCII at {byte:02X}")
        units = [f"0x{unit_of(page, byte):04X}" for byte in range(0x80, 0x100)]
        lines.append(f"    {{{page},")
        rows = [", ".join(units[i : i + 12]) for i in range(0, 128, 12)]
        lines.append("     {{" + ",\n       ".join(rows) + "}}},")
    lines.append("}};")
    return "\n".join(lines) + "\n"


def main():
    made = tables()
    if "--check" in sys.argv[1:]:
        # Another version of iconv may make the same tables, so the line that names it is left out.
        same = TARGET.read_text().splitlines()[1:] == made.splitlines()[1:]
        print("as made" if same else f"{TARGET.name} differs from what iconv gives")
        return 0 if same else 1
    TARGET.write_text(made)
    return 0


if __name__ == "__main__":
    sys.exit(main())
