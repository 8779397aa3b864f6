#!/usr/bin/env python3
"""bench/count_instructions with a tool that counts what it is told to: it finds the cost of one, and tells a changed one."""
import os
import pathlib
import shlex
import subprocess
import sys
import tempfile
import unittest

COUNT = pathlib.Path(__file__).resolve().parents[2] / "bench" / "count_instructions"
# Two jobs.
PROGRAM = "#!/bin/sh\necho frame\necho 'saved key'\n"
# Stands in for callgrind: 5000 instructions, and COST of the job for each time.
TOOL = "import sys\ncosts = dict(frame={0}, **{{'saved key': 70}})\n" \
       "print('==1== Collected :', 5000 + costs[sys.argv[2]] * int(sys.argv[3]), file=sys.stderr)\n"


def count(argument, kept, frame=300, jobs=PROGRAM):
    """The run, and what bench/instructions.txt holds then."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        program, tool, rows = folder / "program", folder / "tool.py", folder / "instructions.txt"
        program.write_text(jobs)
        program.chmod(0o755)
        tool.write_text(TOOL.format(frame))
        rows.write_text(kept)
        environment = os.environ | {"TREMOLUX_COUNT": shlex.join([sys.executable, str(tool)]),
                                    "TREMOLUX_INSTRUCTIONS": str(rows)}
        result = subprocess.run([sys.executable, COUNT, program, argument], env=environment, capture_output=True,
                                text=True)
        return result, rows.read_text()


class CountInstructions(unittest.TestCase):
    def assert_told(self, line, *arguments):
        result, _ = count("--check", *arguments)
        self.assertEqual((result.returncode, result.stderr), (1, f"count_instructions: {line}\n"))

    def test_keeps_what_one_of_each_costs(self):
        result, rows = count("--keep", "")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(rows, "300 frame\n70 saved key\n")

    def test_is_content_within_the_tolerance(self):
        for frame in (286, 300, 315):
            result, rows = count("--check", "300 frame\n70 saved key\n", frame)
            self.assertEqual((result.returncode, result.stderr), (0, ""))
            self.assertEqual(rows, "300 frame\n70 saved key\n")

    def test_tells_a_job_that_takes_more_or_fewer(self):
        for frame in (284, 316):
            self.assert_told(f"'frame': found {frame} instructions, expected 300 within 5%",
                             "300 frame\n70 saved key\n", frame)

    def test_tells_a_job_that_does_nothing(self):
        self.assert_told("'frame': found 0 instructions, expected more than 0", "0 frame\n70 saved key\n", 0)

    def test_tells_a_side_that_is_missing(self):
        self.assert_told("'saved key': found 70 instructions and no row in instructions.txt, expected one", "300 frame\n")
        self.assert_told("'jump': found no such job, expected one", "300 frame\n70 saved key\n9000 jump\n")

    def test_keeps_no_job_that_does_nothing(self):
        result, rows = count("--keep", "300 frame\n", 0)
        self.assertEqual((result.returncode, rows), (1, "300 frame\n"))
        self.assertEqual(result.stderr, "count_instructions: 'frame': found 0 instructions, expected more than 0; kept none\n")

    def test_fails_where_there_is_nothing_to_count(self):
        result, _ = count("--check", "", jobs="#!/bin/sh\n")
        self.assertEqual(result.returncode, 1)
        self.assertRegex(result.stderr, "found no job, expected some")


if __name__ == "__main__":
    unittest.main()
