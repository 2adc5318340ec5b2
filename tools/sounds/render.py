"""Plays a score with our own instruments, for machines that cannot play MIDI."""

import numpy

from instruments import LEVELS, PITCHED, STRUCK
from loudness import levelled
from notes import frequency_of
from room import with_room
from shape import add, banded, centred, ramps

RATE = 32000
TAIL = 1.7
LOUDNESS = -16.0
ROOM_SHARE = 0.3


def _played(part, note, start, end, kept):
    """One note, from the store of those that sounded before where there is one."""
    key = (part.name, note.pitch, round(end - start, 4))
    if key not in kept:
        if part.name in PITCHED:
            kept[key] = PITCHED[part.name](frequency_of(note.pitch), end - start, RATE)
        else:
            kept[key] = STRUCK[note.pitch](RATE)
    return kept[key]


def render(parts, seconds_at):
    """The piece as stereo samples at RATE; `seconds_at` turns a beat into a time."""
    length = seconds_at(max(n.start + n.length for part in parts for n in part.notes)) + TAIL
    mix = numpy.zeros((int(length * RATE), 2))
    kept = {}
    for part in parts:
        angle = part.pan / 127 * numpy.pi / 2
        sides = numpy.array((numpy.cos(angle), numpy.sin(angle))) * LEVELS[part.name] * (part.volume / 100)
        for note in part.notes:
            start, end = seconds_at(note.start), seconds_at(note.start + note.length)
            sound = _played(part, note, start, end, kept) * (note.velocity / 100) ** 1.5
            add(mix, sound[:, None] * sides, start, RATE)
    whole = centred(with_room(mix, RATE, ROOM_SHARE))
    whole = numpy.stack([banded(side, RATE, 30, 13500) for side in whole.T], axis=1)
    return ramps(levelled(whole, RATE, LOUDNESS), RATE, 0.005, 1.3)
