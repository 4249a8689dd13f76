"""Fetches and unpacks the guest's kernel: fetch.py CACHE."""

import sys
from pathlib import Path

import kernel

if __name__ == "__main__":
    try:
        print(kernel.unpacked(Path(sys.argv[1]).absolute())[1])
    except kernel.Trouble as trouble:
        sys.exit(str(trouble))
