"""Plain gradient noise, as most shake is made: the baseline that a shake tool has to beat."""
import numpy

OCTAVES = (1, 2, 4)
PERSISTENCE = 0.5


def noise(time, random):
    """Classic gradient noise of one dimension with a quintic fade."""
    cells = numpy.floor(time).astype(int)
    slopes = random.uniform(-1, 1, cells.max() + 2)
    u = time - cells
    fade = u * u * u * (u * (u * 6 - 15) + 10)
    low, high = slopes[cells] * u, slopes[cells + 1] * (u - 1)
    return low + fade * (high - low)


def octaves(hertz, count, rate, random):
    """Three octaves from `hertz` on, each half as strong as the one below."""
    seconds = numpy.arange(count) / rate
    return sum(PERSISTENCE ** i * noise(seconds * hertz * octave + random.uniform(0, 1), random)
               for i, octave in enumerate(OCTAVES))
