#!/usr/bin/env python3
"""What same_everywhere.py lets through, and what it refuses."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = pathlib.Path(__file__).with_name("same_everywhere.py")
FRAME = "0.5 200 -3 0.25 0 0 36 900"


class SameEverywhere(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def compare(self, left, right, *tolerance):
        files = [self.folder / "left", self.folder / "right"]
        for file, text in zip(files, (left, right)):
            file.write_text(text, encoding="utf-8")
        return subprocess.run([sys.executable, TOOL, *files, *tolerance], capture_output=True, text=True)

    def refused(self, left, right):
        done = self.compare(left, right)
        self.assertEqual(1, done.returncode)
        self.assertEqual(1, done.stderr.count("\n"), done.stderr)
        return done.stderr

    def test_equal_files_have_no_difference(self):
        done = self.compare(f"# A\n{FRAME}\n", f"# A\n{FRAME}\n")
        self.assertEqual((0, "largest difference: 0"), (done.returncode, done.stdout.splitlines()[-1]))

    def test_numbers_above_one_differ_by_their_share(self):
        # 200 and 200 + 2^-33, about 1.16e-10: a share of 5.8e-13.
        moved = FRAME.replace("200", repr(200 + 2**-33))
        done = self.compare(f"# A\n{FRAME}\n", f"# A\n{moved}\n")
        self.assertEqual((0, "largest difference: 5.82e-13"), (done.returncode, done.stdout.splitlines()[-1]))
        self.assertNotEqual(0, self.compare(f"# A\n{FRAME}\n", f"# A\n{moved}\n", "5e-13").returncode)

    def test_numbers_up_to_one_differ_by_what_is_between_them(self):
        # 2^-39 is about 1.8e-12, whatever the number.
        self.assertIn("1.82e-12", self.refused(f"# A\n{FRAME}\n", f"# A\n{FRAME.replace('0.25', repr(0.25 + 2**-39))}\n"))

    def test_other_presets_or_frames_are_refused(self):
        whole = f"# A\n{FRAME}\n# B\n{FRAME}\n{FRAME}\n"
        self.assertIn("('B', 2) and ('B', 1)", self.refused(whole, f"# A\n{FRAME}\n# B\n{FRAME}\n"))
        self.assertIn("found 2 and 1", self.refused(whole, f"# A\n{FRAME}\n"))
        self.assertIn("('A', 1) and ('C', 1)", self.refused(whole, whole.replace("A", "C")))

    def test_what_is_no_output_is_refused(self):
        for text in ("", "# A\n", f"{FRAME}\n", "# A\n1 2 3\n", f"# A\n{FRAME.replace('36', 'nan')}\n", "# A\nno numbers\n",
                     f"# A\n{FRAME}\n# A\n{FRAME}\n"):
            with self.subTest(text):
                self.assertIn("expected", self.refused(f"# A\n{FRAME}\n", text))


if __name__ == "__main__":
    unittest.main()
