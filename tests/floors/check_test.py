"""Lets the floor check look at small trees and compares the faults that it finds."""
import subprocess
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).resolve().parent / "check"
FLOORS = """
1 src/base/*
2 src/form/Left
2 src/form/Right
3 src/top/*
"""
CASES = [
    ("down and to the left is the way",
     {"base/A.h": "", "form/Left.h": "base/A.h", "form/Right.h": "form/Left.h"}, ""),
    ("a header and its source are one room",
     {"form/Left.h": "", "form/Left.cpp": "form/Left.h"}, ""),
    ("a folder is one room",
     {"base/A.h": "base/B.h", "base/B.h": ""}, ""),
    ("an arrow that runs up",
     {"base/A.h": "top/T.h", "top/T.h": ""},
     "src/base/A (floor 1) includes src/top/T (floor 3, above)."),
    ("an arrow to the right",
     {"form/Left.h": "form/Right.h", "form/Right.h": ""},
     "src/form/Left (floor 2) includes src/form/Right (floor 2, to the right)."),
    ("a source may know no more than its header",
     {"form/Left.h": "", "form/Left.cpp": "top/T.h", "top/T.h": ""}, "src/top/T (floor 3, above)"),
    ("a path that only begins like a room's is another room",
     {"form/Lefty.h": ""}, "src/form/Lefty stands on no floor."),
    ("an include that leads nowhere",
     {"top/T.h": "base/Gone.h"}, "src/top/T includes src/base/Gone, which is not there."),
]


def check(folder, files):
    for name, included in files.items():
        path = folder / "src" / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(f'#include "{included}"\n' if included else "")
    floors = folder / "floors.txt"
    floors.write_text(FLOORS)
    return subprocess.run([CHECK, folder, floors], capture_output=True, text=True)


class FloorCheck(unittest.TestCase):
    def test_trees(self):
        for why, files, fault in CASES:
            with self.subTest(why), tempfile.TemporaryDirectory() as folder:
                run = check(Path(folder), files)
                self.assertEqual(run.returncode, 1 if fault else 0, run.stdout + run.stderr)
                self.assertIn(fault, run.stdout)


unittest.main()
