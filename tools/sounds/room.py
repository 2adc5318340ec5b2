"""A room for a dry sound: its echoes are noise that dies away, the highs first."""

import numpy

from shape import banded, noise

SECONDS = 1.8
# (low Hz, high Hz, seconds in which the band falls by 60 dB)
BANDS = ((150, 1200, 1.7), (1200, 4000, 1.1), (4000, 9000, 0.6))
FIRST_ECHO = 0.018


def _echoes(rate, seed):
    count = int(SECONDS * rate)
    t = numpy.arange(count) / rate
    total = numpy.zeros(count)
    for number, (low, high, fall) in enumerate(BANDS):
        total += banded(noise(count, seed + number), rate, low, high) * 10 ** (-3 * t / fall)
    total[: int(FIRST_ECHO * rate)] = 0
    return total / numpy.sqrt(numpy.sum(total**2))


def with_room(sound, rate, share):
    """A stereo sound of the same length with the given share of echo; each side has echoes of its own."""
    size = 1 << (len(sound) + int(SECONDS * rate)).bit_length()
    result = sound.copy()
    for side in range(2):
        echo = numpy.fft.irfft(numpy.fft.rfft(sound[:, side], size) * numpy.fft.rfft(_echoes(rate, 7 + 10 * side), size), size)
        result[:, side] += share * echo[: len(sound)]
    return result
