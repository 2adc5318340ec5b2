"""Small things that all sounds are made of. Times are in seconds, a sound is an array of samples."""

import numpy


def times(seconds, rate):
    return numpy.arange(int(seconds * rate)) / rate


def phase(frequency, rate):
    """The running angle of a frequency that changes from sample to sample."""
    return 2 * numpy.pi * numpy.cumsum(frequency) / rate


def between(points, t):
    """A curve through (time, value) points, straight in between."""
    return numpy.interp(t, *zip(*points))


def glide(points, t):
    """The same in even musical steps, for frequencies."""
    return numpy.exp(numpy.interp(t, [at for at, _ in points], numpy.log([value for _, value in points])))


def ramps(sound, rate, first=0.002, last=0.01):
    """The sound with a smooth start and end."""
    result = sound.copy()
    for seconds, part in ((first, slice(None)), (last, slice(None, None, -1))):
        count = min(int(seconds * rate), len(sound))
        curve = 0.5 - 0.5 * numpy.cos(numpy.pi * numpy.arange(count) / count)
        view = result[part]
        view[:count] = (view[:count].T * curve).T
    return result


def add(target, sound, at, rate):
    """Mixes a sound into the target from the given second on; what would reach past its end is cut off."""
    start = int(round(at * rate))
    count = min(len(sound), len(target) - start)
    if count > 0:
        target[start : start + count] += sound[:count]


def noise(count, seed):
    """White noise, the same for the same seed."""
    return numpy.random.RandomState(seed).uniform(-1, 1, count)


def banded(sound, rate, low, high):
    """Only what lies around low to high Hz, with soft edges."""
    spectrum = numpy.fft.rfft(sound)
    frequencies = numpy.fft.rfftfreq(len(sound), 1 / rate) + 1e-9
    keep = 1 / (1 + (low / frequencies) ** 4) / (1 + (frequencies / high) ** 4)
    return numpy.fft.irfft(spectrum * keep, len(sound))


def centred(sound):
    """Without the part that does not swing."""
    return sound - numpy.mean(sound, axis=0)
