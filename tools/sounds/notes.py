"""Note names and lines of notes as text."""

from dataclasses import dataclass

STEPS = {"C": 0, "D": 2, "E": 4, "F": 5, "G": 7, "A": 9, "B": 11}
SIGNS = {"#": 1, "b": -1}
EIGHTHS_PER_BEAT = 2
EIGHTHS_PER_BAR = 8


@dataclass(frozen=True)
class Note:
    """Start and length are in beats, the pitch is a MIDI number (60 is C4), the velocity 1 to 127."""

    start: float
    length: float
    pitch: int
    velocity: int


def pitch_of(name):
    """The MIDI number of a name such as "F#5"; KeyError or ValueError for anything else."""
    step = STEPS[name[0]]
    rest = name[1:]
    if rest[0] in SIGNS:
        step += SIGNS[rest[0]]
        rest = rest[1:]
    return step + 12 * (int(rest) + 1)


def frequency_of(pitch):
    """In Hz, A4 being 440."""
    return 440.0 * 2 ** ((pitch - 69) / 12)


def line(text, first_bar=0):
    """Reads bars parted by "|" of "NAME:LENGTH" words, lengths in eighths, "r" for a rest.

    Gives (start beat, length in beats, pitch) and raises ValueError for a bar that is not full.
    """
    result = []
    for number, bar in enumerate(text.split("|")):
        at = 0
        for word in bar.split():
            name, eighths = word.split(":")
            if name != "r":
                start = (first_bar + number) * EIGHTHS_PER_BAR + at
                result.append((start / EIGHTHS_PER_BEAT, int(eighths) / EIGHTHS_PER_BEAT, pitch_of(name)))
            at += int(eighths)
        if at != EIGHTHS_PER_BAR:
            raise ValueError(f"bar {number + 1} has {at} eighths: {bar.strip()}")
    return result
