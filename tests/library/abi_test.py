#!/usr/bin/env python3
"""The library's binary interface against the committed description, and that a difference is told.

abi_test.py SOURCE_FOLDER LIBRARY
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

SOURCE, LIBRARY = (pathlib.Path(path).resolve() for path in sys.argv[1:3])
DESCRIPTION = (SOURCE / "library/interface/abi.xml").read_text(encoding="utf-8")


def compare(description):
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder) / "abi.xml"
        file.write_text(description, encoding="utf-8")
        return subprocess.run([SOURCE / "script/abi", "--compare", LIBRARY, file], capture_output=True, text=True)


class Interface(unittest.TestCase):
    def told(self, pattern, replacement):
        """What is said when the description was another."""
        changed, count = re.subn(pattern, replacement, DESCRIPTION, flags=re.DOTALL)
        self.assertGreater(count, 0, pattern)
        done = compare(changed)
        self.assertEqual(1, done.returncode, done.stdout)
        self.assertIn("script/abi --write", done.stderr)
        return done.stdout

    def test_is_the_committed_one(self):
        done = compare(DESCRIPTION)
        self.assertEqual(0, done.returncode, done.stdout + done.stderr)

    def test_is_that_of_the_header(self):
        header = (SOURCE / "library/include/tremolux/tremolux.h").read_text(encoding="utf-8")
        declared = set(re.findall(r"TREMOLUX_API [^;]*?\b(tremolux_\w+)\(", header))
        self.assertEqual(declared, set(re.findall(r"<function-decl name='(\w+)'", DESCRIPTION)))
        for struct in set(re.findall(r"typedef struct (tremolux_\w+) {", header)):
            self.assertIn(f"<class-decl name='{struct}'", DESCRIPTION)

    def test_tells_of_a_function_that_is_gone(self):
        self.assertIn("tremolux_shot_push", self.told("tremolux_shot_press", "tremolux_shot_push"))

    def test_tells_of_an_argument_that_is_gone(self):
        one_more = r"(<function-decl name='tremolux_shot_undo'.*?)(<parameter [^\n]*\n)(.*?</function-decl>)"
        self.assertIn("tremolux_shot_undo", self.told(one_more, r"\1\2\2\3"))

    def test_tells_of_a_struct_that_has_grown(self):
        size = r"(<class-decl name='tremolux_measures' size-in-bits=')\d+"
        self.assertIn("tremolux_measures", self.told(size, r"\g<1>64"))

    def test_tells_of_a_constant_that_is_another(self):
        self.assertIn("TREMOLUX_BUSY", self.told(r"(name='TREMOLUX_BUSY' value=')6", r"\g<1>7"))

    def test_names_no_folder_of_whoever_wrote_it(self):
        self.assertNotIn(str(SOURCE), DESCRIPTION)
        self.assertEqual([], re.findall(r"path='/[^']*", DESCRIPTION))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
