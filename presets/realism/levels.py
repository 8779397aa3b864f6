"""How strongly a camera moves in each axis and band, and how far two motions are from each other.

A motion is {axis: samples}, one sample a frame: x, y, z in centimetres; heading, pitch, bank in degrees. Its levels are
{axis: RMS in each of BANDS}.
"""
import numpy

AXES = ("x", "y", "z", "heading", "pitch", "bank")
BANDS = ((0.0, 1.0), (1.0, 4.0), (4.0, 12.0))  # hertz
SLOWEST = 0.1  # hertz: what is slower is the operator's way, not the shake
STILL = 1e-7  # RMS


def without_drift(samples, rate):
    """Less the straight line and the cosines of half periods below SLOWEST that fit best (least squares)."""
    count = len(samples)
    time = (numpy.arange(count) + 0.5) / count
    halves = int(numpy.ceil(SLOWEST * 2 * count / rate))
    basis = [numpy.ones(count), time] + [numpy.cos(numpy.pi * k * time) for k in range(1, halves)]
    basis = numpy.array(basis).T
    share, *_ = numpy.linalg.lstsq(basis, samples, rcond=None)
    return samples - basis @ share


def band_rms(samples, rate):
    """RMS in each band. Real shake falls by about f^-4 in power: without a window the ends' jump would drown the fast band."""
    samples = without_drift(numpy.asarray(samples, dtype=float), rate)
    window = numpy.hanning(len(samples) + 2)[1:-1]
    power = numpy.abs(numpy.fft.rfft(samples * window)) ** 2 / (len(samples) * (window ** 2).sum())
    power[1:] *= 2
    if len(samples) % 2 == 0:
        power[-1] /= 2
    hertz = numpy.fft.rfftfreq(len(samples), 1 / rate)
    return numpy.sqrt([power[(hertz > low) & (hertz <= high)].sum() for low, high in BANDS])


def levels(motion, rate):
    return {axis: band_rms(samples, rate) for axis, samples in motion.items()}


def mean_levels(takes):
    """RMS of several takes' levels."""
    return {axis: numpy.sqrt(numpy.mean([take[axis] ** 2 for take in takes], axis=0)) for axis in takes[0]}


def pieces(motion, length):
    """As many motions of `length` samples as fit, one after the other."""
    count = min(len(samples) for samples in motion.values()) // length
    return [{axis: samples[i * length:(i + 1) * length] for axis, samples in motion.items()} for i in range(count)]


def log_ratios(found, wanted):
    """{axis: ln(found / wanted) in each band}, for the axes that move in `wanted`; held within a factor of a thousand."""
    ratios = {}
    for axis, level in wanted.items():
        if numpy.sqrt((level ** 2).sum()) < STILL:
            continue
        ratios[axis] = numpy.clip(numpy.log(numpy.maximum(found[axis], 1e-12) / numpy.maximum(level, 1e-12)),
                                  -numpy.log(1000), numpy.log(1000))
    return ratios


def distance(ratios):
    return float(numpy.mean(numpy.abs(numpy.concatenate(list(ratios.values())))))


def hits(ratios, factor):
    return int((numpy.abs(numpy.concatenate(list(ratios.values()))) <= numpy.log(factor)).sum())


def fitted_together(ratios, groups):
    """The same with one amplitude for each group of axes: less the median, which leaves the least mean of absolutes."""
    fitted = {}
    for group in groups:
        there = [axis for axis in group if axis in ratios]
        if not there:
            continue
        median = numpy.median(numpy.concatenate([ratios[axis] for axis in there]))
        fitted.update({axis: ratios[axis] - median for axis in there})
    return fitted


INTENSITIES = (AXES[:3], AXES[3:])
EACH_AXIS = tuple((axis,) for axis in AXES)
