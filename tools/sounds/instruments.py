"""The players of the credits piece: each makes one note as a mono sound, in seconds and Hz, at full loudness 1."""

import numpy

from shape import banded, noise, phase, ramps, times


def _partials(t, frequency, rate, table):
    """Decaying partials; the table holds (multiple, loudness, decay per second)."""
    total = numpy.zeros_like(t)
    for multiple, loudness, decay in table:
        if multiple * frequency < 0.42 * rate:
            total += loudness * numpy.exp(-decay * t) * numpy.sin(2 * numpy.pi * multiple * frequency * t)
    return total


def _held(t, length, attack, release):
    """Rises to 1, stays, and falls off after the note's length."""
    rise = 1 - numpy.exp(-t / attack)
    return rise * numpy.where(t < length, 1.0, numpy.exp(-(t - length) / release))


def flute(frequency, length, rate):
    t = times(length + 0.25, rate)
    vibrato = 1 + 0.0035 * numpy.clip((t - 0.25) / 0.3, 0, 1) * numpy.sin(2 * numpy.pi * 5.1 * t)
    angle = phase(frequency * vibrato, rate)
    breath = banded(noise(len(t), int(frequency)), rate, frequency, 3 * frequency)
    tone = numpy.sin(angle) + 0.28 * numpy.sin(2 * angle) + 0.1 * numpy.sin(3 * angle) + 0.03 * numpy.sin(4 * angle)
    return ramps(0.75 * (tone + 0.05 * breath) * _held(t, length, 0.035, 0.06), rate)


def celesta(frequency, length, rate):
    del length  # A struck bar rings as long as it rings.
    t = times(1.6, rate)
    return ramps(_partials(t, frequency, rate, ((1, 1, 3.2), (2, 0.2, 5), (4, 0.22, 11), (6.7, 0.05, 22))), rate, 0.001, 0.2)


def guitar(frequency, length, rate):
    t = times(length + 0.5, rate)
    table = [(k * (1 + 0.00007 * k * k), 1 / k**1.25 * abs(numpy.sin(0.37 * numpy.pi * k)), 1.6 + 0.75 * k) for k in range(1, 13)]
    damp = numpy.where(t < length, 1.0, numpy.exp(-(t - length) / 0.12))
    return ramps(_partials(t, frequency, rate, table) * damp, rate, 0.0015, 0.05)


def strings(frequency, length, rate):
    t = times(length + 0.9, rate)
    total = numpy.zeros_like(t)
    for number, cents in enumerate((-7, 0, 6)):
        angle = phase(numpy.full_like(t, frequency * 2 ** (cents / 1200)), rate) + number
        for k in range(1, 7):
            total += numpy.sin(k * angle) / k**1.7
    return ramps(0.3 * total * _held(t, length, 0.22, 0.28), rate, 0.01, 0.05)


def bass(frequency, length, rate):
    t = times(length + 0.2, rate)
    tone = _partials(t, frequency, rate, ((1, 1, 1.1), (2, 0.55, 1.8), (3, 0.22, 3.2), (4, 0.08, 5)))
    return ramps(tone * numpy.where(t < length, 1.0, numpy.exp(-(t - length) / 0.05)), rate, 0.004, 0.03)


def shaker(rate):
    t = times(0.16, rate)
    swish = (1 - numpy.exp(-t / 0.02)) * numpy.exp(-t / 0.035)
    return ramps(2 * swish * banded(noise(len(t), 82), rate, 4500, 9000), rate)


def triangle(rate):
    t = times(1.8, rate)
    return ramps(0.35 * _partials(t, 1, rate, ((2890, 0.6, 2.6), (4730, 1, 2.2), (6830, 0.8, 3.1), (9210, 0.5, 4))), rate, 0.001, 0.3)


PITCHED = {"Flute": flute, "Celesta": celesta, "Guitar": guitar, "Strings": strings, "Bass": bass}
STRUCK = {82: shaker, 81: triangle}
# How loud each player stands in the mix, at the same volume and velocity.
LEVELS = {"Flute": 0.42, "Celesta": 0.46, "Guitar": 0.5, "Strings": 0.36, "Bass": 0.5, "Percussion": 0.75}
