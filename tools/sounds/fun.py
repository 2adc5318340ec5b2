"""The seven sounds of the frame: each function gives a mono sound at RATE, of any loudness."""

import numpy

from notes import frequency_of, pitch_of
from shape import add, banded, between, glide, noise, phase, ramps, times

RATE = 44100


def _hummed(frequency, formant, width, harmonics=24):
    """A buzzing voice: harmonics weighed by their distance from a moving formant, all in Hz."""
    angle = phase(frequency, RATE)
    total = numpy.zeros_like(frequency)
    for k in range(1, harmonics + 1):
        weight = numpy.exp(-(((k * frequency - formant) / width) ** 2)) + 0.12 / k
        total += weight * numpy.where(k * frequency < 0.4 * RATE, 1, 0) * numpy.sin(k * angle)
    return total


def boing():
    """A ruler let go at the edge of a table."""
    t = times(1.25, RATE)
    wobble = numpy.sin(2 * numpy.pi * (9 * t + 2.2 * t * t))
    frequency = 118 * (1 + 0.22 * numpy.exp(-1.8 * t) * wobble) * glide([(0, 1.35), (0.12, 1), (1.25, 1.12)], t)
    formant = 950 + 620 * wobble * numpy.exp(-1.2 * t)
    return _hummed(frequency, formant, 330) * numpy.exp(-2.6 * t) * (1 + 0.5 * wobble)


def slide_whistle():
    """All the way up, a moment of doubt, and down."""
    t = times(1.5, RATE)
    frequency = glide([(0, 520), (0.5, 1750), (0.62, 1800), (0.75, 1700), (1.5, 330)], t)
    frequency = frequency * (1 + 0.012 * numpy.sin(2 * numpy.pi * 7 * t))
    angle = phase(frequency, RATE)
    breath = banded(noise(len(t), 2), RATE, 900, 5000)
    swell = between([(0, 0), (0.05, 0.8), (0.55, 1), (0.68, 0.6), (0.8, 0.95), (1.38, 0.7), (1.5, 0)], t)
    return swell * (numpy.sin(angle) + 0.16 * numpy.sin(2 * angle) + 0.07 * numpy.sin(3 * angle) + 0.12 * breath)


def _cork(pitch, strength):
    t = times(0.16, RATE)
    frequency = glide([(0, pitch * 0.5), (0.03, pitch), (0.16, pitch * 1.15)], t)
    thump = numpy.sin(phase(frequency, RATE)) * numpy.exp(-t / 0.035)
    click = banded(noise(len(t), int(pitch)), RATE, 1500, 6000) * numpy.exp(-t / 0.004)
    return strength * ramps(thump + 0.5 * click, RATE, 0.001, 0.03)


def corks():
    """Three bottles, the last one with fizz."""
    total = numpy.zeros(int(1.3 * RATE))
    for at, pitch, strength in ((0, 420, 0.8), (0.17, 520, 0.85), (0.42, 760, 1)):
        add(total, _cork(pitch, strength), at, RATE)
    t = times(0.8, RATE)
    crackle = numpy.where(noise(len(t), 30) > 0.985, noise(len(t), 31), 0) * 4
    fizz = banded(noise(len(t), 3) * 0.25 + crackle, RATE, 3500, 9000) * (1 - numpy.exp(-t / 0.03)) * numpy.exp(-t / 0.2)
    add(total, 0.4 * fizz, 0.46, RATE)
    return total


def bubbles():
    """A chain that hurries upwards."""
    total = numpy.zeros(int(1.55 * RATE))
    luck = noise(60, 4)
    at = 0.0
    for number in range(17):
        t = times(0.13, RATE)
        pitch = 330 * 2 ** (number / 8) * (1 + 0.18 * luck[number])
        frequency = pitch * (1 + 5 * t)
        bubble = numpy.sin(phase(frequency, RATE)) * (1 - numpy.exp(-t / 0.004)) * numpy.exp(-t / 0.03)
        add(total, ramps(bubble, RATE, 0.001, 0.03) * (0.8 + 0.2 * luck[20 + number]), at, RATE)
        at += 0.115 - 0.0035 * number + 0.02 * luck[40 + number]
    return total


def _brass(names, seconds):
    t = times(seconds + 0.08, RATE)
    held = (1 - numpy.exp(-t / 0.018)) * numpy.where(t < seconds, 1, numpy.exp(-(t - seconds) / 0.02))
    total = numpy.zeros_like(t)
    for name in names.split():
        frequency = frequency_of(pitch_of(name)) * (1 + 0.004 * numpy.sin(2 * numpy.pi * 5.5 * t) * numpy.clip(t - 0.2, 0, 1))
        total += _hummed(frequency, 700 + 700 * held, 900, 14)
    return ramps(total * held, RATE, 0.002, 0.02)


def fanfare():
    """Small, proud, and with a hiccup at the end."""
    total = numpy.zeros(int(1.85 * RATE))
    beats = ((0, "C5", 0.09), (0.13, "C5", 0.09), (0.26, "F5", 0.2), (0.52, "D5", 0.09), (0.65, "C5 E5 G5", 0.62))
    for at, names, seconds in beats:
        add(total, _brass(names, seconds) / len(names.split()) ** 0.6, at, RATE)
    t = times(0.26, RATE)
    frequency = glide([(0, 150), (0.12, 210), (0.26, 120)], t)
    toot = _hummed(frequency, glide([(0, 500), (0.1, 1300), (0.26, 450)], t), 300) * numpy.exp(-((t - 0.1) / 0.09) ** 2)
    add(total, ramps(1.1 * toot, RATE, 0.01, 0.03), 1.5, RATE)
    return total


def sad_horn():
    """Three sighs of a muted horn."""
    total = numpy.zeros(int(1.95 * RATE))
    for at, name, seconds in ((0, "D4", 0.34), (0.42, "C#4", 0.34), (0.84, "B3", 1.05)):
        t = times(seconds, RATE)
        droop = glide([(0, 1.03), (0.08, 1), (seconds * 0.5, 1), (seconds, 0.93)], t)
        shake = 1 + 0.02 * numpy.sin(2 * numpy.pi * 6 * t) * numpy.clip((t - 0.3) / 0.3, 0, 1)
        mute = between([(0, 380), (seconds * 0.35, 1500), (seconds, 420)], t)
        swell = numpy.sin(numpy.pi * numpy.clip(t / seconds, 0, 1)) ** 0.6
        add(total, ramps(_hummed(frequency_of(pitch_of(name)) * droop * shake, mute, 420) * swell, RATE), at, RATE)
    return total


def robot():
    """A small machine says something and then asks."""
    luck = noise(40, 11)
    total = numpy.zeros(int(1.47 * RATE))
    at = 0.0
    for number in range(10):
        seconds = 0.07 + 0.035 * abs(luck[number])
        pitch = frequency_of(72 + 2 * round(5 * luck[10 + number]))
        add(total, _bleep(pitch, pitch * 2 ** (0.5 * luck[20 + number]), seconds), at, RATE)
        at += seconds + (0.07 if number == 4 else 0.015)
    add(total, _bleep(620, 1500, 0.3), at + 0.05, RATE)
    return total


def _bleep(first, last, seconds):
    t = times(seconds, RATE)
    angle = phase(glide([(0, first), (seconds, last)], t), RATE)
    tone = numpy.sin(angle + 1.6 * numpy.sin(2 * angle)) * (0.75 + 0.25 * numpy.sin(2 * numpy.pi * 62 * t))
    return ramps(tone, RATE, 0.006, 0.015)


# In the order in which they are played.
SOUNDS = (boing, slide_whistle, corks, bubbles, fanfare, sad_horn, robot)
