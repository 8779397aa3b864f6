#!/usr/bin/python3
"""The measures of presets/realism, on motions whose figures are known: realism_test.py PROJECT."""
import pathlib
import sys
import unittest

import numpy

sys.path.insert(0, str(pathlib.Path(sys.argv.pop(1)) / "presets" / "realism"))
import levels  # noqa: E402
import perlin  # noqa: E402
import realism  # noqa: E402

RATE = 24
SECONDS = numpy.arange(60 * RATE) / RATE


def sine(hertz, amplitude=1.0):
    return amplitude * numpy.sin(2 * numpy.pi * hertz * SECONDS)


class Levels(unittest.TestCase):
    def test_a_sine_is_in_its_band_with_the_rms_of_a_sine(self):
        for band, hertz in enumerate((0.5, 2.5, 8.0)):
            wanted = [3 / numpy.sqrt(2) if band == other else 0 for other in range(3)]
            numpy.testing.assert_allclose(levels.band_rms(sine(hertz, 3), RATE), wanted, atol=0.02)

    def test_white_noise_has_each_band_by_its_width(self):
        noise = numpy.random.default_rng(5).normal(size=len(SECONDS) * 60)
        takes = [levels.levels(take, RATE) for take in levels.pieces({"x": noise}, len(SECONDS))]
        self.assertEqual(len(takes), 60)
        found = levels.mean_levels(takes)["x"]
        # Of a variance of 1 up to 12 Hz: a twelfth a hertz, the lowest tenth of a hertz gone.
        numpy.testing.assert_allclose(found ** 2 * 12, (0.9, 3, 8), rtol=0.05)

    def test_a_drift_is_no_shake(self):
        share = (numpy.arange(len(SECONDS)) + 0.5) / len(SECONDS)
        drift = 7 + 120 * share + 30 * numpy.cos(11 * numpy.pi * share)
        numpy.testing.assert_allclose(levels.without_drift(drift, RATE), 0, atol=1e-8)
        numpy.testing.assert_allclose(levels.band_rms(drift + sine(2), RATE), levels.band_rms(sine(2), RATE), atol=1e-9)

    def test_a_steep_spectrum_keeps_its_quiet_bands(self):
        # A slow sway a thousand times as strong must not spill into the tremor's band.
        found = levels.band_rms(sine(0.33, 1000) + sine(8, 1), RATE)
        self.assertAlmostEqual(found[2], 1 / numpy.sqrt(2), delta=0.02)


class Distance(unittest.TestCase):
    def setUp(self):
        self.one = levels.levels({"x": sine(0.5) + sine(2) + sine(7), "pitch": sine(0.5) + sine(2) + sine(7)}, RATE)

    def test_is_nothing_to_itself_and_the_logarithm_of_a_factor(self):
        self.assertEqual(levels.distance(levels.log_ratios(self.one, self.one)), 0)
        twice = {axis: 2 * level for axis, level in self.one.items()}
        self.assertAlmostEqual(levels.distance(levels.log_ratios(twice, self.one)), numpy.log(2))
        self.assertEqual(levels.hits(levels.log_ratios(twice, self.one), 1.9), 0)
        self.assertEqual(levels.hits(levels.log_ratios(twice, self.one), 2.1), 6)

    def test_amplitudes_of_groups_take_up_what_is_the_same_for_all_of_it(self):
        other = {"x": 2 * self.one["x"], "pitch": 5 * self.one["pitch"]}
        ratios = levels.log_ratios(other, self.one)
        self.assertAlmostEqual(levels.distance(levels.fitted_together(ratios, levels.EACH_AXIS)), 0)
        self.assertAlmostEqual(levels.distance(levels.fitted_together(ratios, levels.INTENSITIES)), 0)

    def test_axes_that_were_not_recorded_are_not_asked(self):
        self.assertEqual(set(levels.log_ratios({**self.one, "y": sine(1)}, self.one)), {"x", "pitch"})


class Perlin(unittest.TestCase):
    def test_is_zero_on_the_lattice_smooth_between_and_never_beyond_half(self):
        noise = perlin.noise(numpy.arange(0, 200, 0.01), numpy.random.default_rng(2))
        numpy.testing.assert_allclose(noise[::100], 0, atol=1e-9)
        self.assertGreater(numpy.abs(noise).max(), 0.2)
        self.assertLessEqual(numpy.abs(noise).max(), 0.5)
        self.assertLess(numpy.abs(numpy.diff(noise)).max(), 0.03)


class Kinds(unittest.TestCase):
    def test_a_recordings_name_says_its_kind_where_one_is_meant(self):
        self.assertEqual(realism.kinds_of("walk-to-the-store"), ("Walking and running",))
        self.assertIn("Vehicles", realism.kinds_of("Bike_on_gravel"))
        self.assertIsNone(realism.kinds_of("the-closeup"))


if __name__ == "__main__":
    unittest.main()
