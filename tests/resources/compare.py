#!/usr/bin/env python3
"""Lets a resource folder's script write into an empty folder, and compares every picture: compare.py FOLDER"""

import pathlib
import subprocess
import sys
import tempfile


def pictures(folder):
    return {path.name: path.read_bytes() for path in folder.iterdir() if path.suffix in (".bmp", ".cur")}


def main(folder):
    with tempfile.TemporaryDirectory() as written:
        subprocess.run([sys.executable, "-B", folder / "make_resources.py", written], check=True)
        expected, actual = pictures(pathlib.Path(written)), pictures(folder)
    different = sorted(name for name in expected | actual if expected.get(name) != actual.get(name))
    sys.exit(f"Not what make_resources.py writes: {', '.join(different)}" if different else 0)


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))
