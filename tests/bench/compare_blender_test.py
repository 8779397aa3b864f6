#!/usr/bin/env python3
"""bench/compare_blender with made-up figures of both sides: it tells a ratio, and fails where a side has no figure."""
import json
import os
import pathlib
import shlex
import subprocess
import sys
import tempfile
import unittest

COMPARE = pathlib.Path(__file__).resolve().parents[2] / "bench" / "compare_blender"
# Stands in for the benchmarks: the medians of its first argument, as far as the filter asks for them.
BENCH = """
import json, re, sys
medians = json.loads(sys.argv[1])
given = dict(argument.split("=", 1) for argument in sys.argv[2:])
runs = [{"run_name": name, "aggregate_name": "median", "cpu_time": time, "time_unit": unit, "of": of}
        for name, (time, unit, of) in medians.items() if re.search(given["--benchmark_filter"], name)]
if runs:
    open(given["--benchmark_out"], "w").write(json.dumps({"benchmarks": runs}))
else:
    open(given["--benchmark_out"], "w")
"""
FAST = {"EvaluatedFrame": (8000, "ns", 1), "QuickBake/1000": (9, "ms", 1000), "QuickBake/10000": (100, "ms", 10000)}
BLENDER = "Blender quits\nmicroseconds shown 40.0\nmicroseconds baked 600.0"


def compare(medians=None, blender=BLENDER, without=None):
    medians = {name: median for name, median in (FAST | (medians or {})).items() if name != without}
    with tempfile.TemporaryDirectory() as folder:
        bench = pathlib.Path(folder) / "bench.py"
        bench.write_text(BENCH)
        environment = os.environ | {
            "TREMOLUX_BENCH": shlex.join([sys.executable, str(bench), json.dumps(medians)]),
            "TREMOLUX_BLENDER": shlex.join([sys.executable, "-c", f"print({blender!r})"])}
        return subprocess.run([sys.executable, COMPARE], env=environment, capture_output=True, text=True)


class CompareBlender(unittest.TestCase):
    def assert_fails(self, result, line):
        self.assertEqual(result.returncode, 1, result.stdout)
        self.assertEqual(result.stderr, f"compare_blender: {line}\n")

    def test_tells_how_many_times_as_fast_a_frame_is(self):
        result = compare()
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(result.stdout.splitlines(), [
            "a frame of 1000: 8.00 us here, 40.00 us in Blender, 5.0 times as fast",
            "a baked frame of 1000: 9.00 us here, 600.00 us in Blender, 66.7 times as fast",
            "a frame of 10000: 8.00 us here, 40.00 us in Blender, 5.0 times as fast",
            "a baked frame of 10000: 10.00 us here, 600.00 us in Blender, 60.0 times as fast"])

    def test_fails_where_a_measurement_is_not_there_any_more(self):
        for name in FAST:
            with self.subTest(name):
                self.assert_fails(compare(without=name), f"found 0 medians of the measurement {name}, expected one")

    def test_fails_where_a_measurement_took_no_time(self):
        self.assert_fails(compare({"EvaluatedFrame": (0, "ns", 1)}),
                          "a frame of 1000, here: found 0.0 microseconds, expected more than 0")

    def test_fails_where_blender_tells_nothing(self):
        self.assert_fails(compare(blender="Blender quits"),
                          "a frame of 1000, Blender: found None microseconds, expected more than 0")
        self.assert_fails(compare(blender="microseconds shown 40.0\nmicroseconds baked 0.0"),
                          "a baked frame of 1000, Blender: found 0.0 microseconds, expected more than 0")

    def test_fails_where_a_time_has_no_end(self):
        self.assert_fails(compare(blender="microseconds shown inf\nmicroseconds baked 600.0"),
                          "a frame of 1000, Blender: found inf microseconds, expected a number")

    def test_fails_where_a_frame_is_too_slow(self):
        self.assert_fails(compare({"EvaluatedFrame": (20, "us", 1)}),
                          "a frame of 1000: found 2.0 times as fast, expected at least 2.5")
        self.assert_fails(compare({"QuickBake/1000": (40, "ms", 1000)}),
                          "a baked frame of 1000: found 15.0 times as fast, expected at least 20")


if __name__ == "__main__":
    unittest.main()
