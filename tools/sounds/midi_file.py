"""Writes a Standard MIDI File of format 1: one track for tempo and names, then one for each part.

Every chunk is a four-letter name, its length in four bytes and its bytes. An event is the ticks since the one
before, seven bits to a byte with the top bit set on all but the last, and the message.
"""

import struct

TICKS_PER_BEAT = 480
ORDER_ON_A_TICK = {"set-up": 0, "off": 1, "on": 2}

END_OF_TRACK = b"\xff\x2f\x00"


def variable_length(number):
    if number < 0:
        raise ValueError("an event lies before the one it follows")
    parts = [number & 0x7F]
    while number := number >> 7:
        parts.append(number & 0x7F | 0x80)
    return bytes(reversed(parts))


def meta(kind, data):
    return bytes((0xFF, kind)) + variable_length(len(data)) + data


def ticks(beat):
    return round(beat * TICKS_PER_BEAT)


def chunk(name, data):
    return name + struct.pack(">I", len(data)) + data


def track(events):
    """Events are (tick, what, message); of those on one tick a note ends before the next begins."""
    data, last = b"", 0
    for tick, _, message in sorted(events, key=lambda e: (e[0], ORDER_ON_A_TICK[e[1]], e[2])):
        data += variable_length(tick - last) + message
        last = tick
    return chunk(b"MTrk", data + b"\x00" + END_OF_TRACK)


def tempo_track(title, tempo):
    events = [(0, "set-up", meta(0x03, title.encode("ascii"))), (0, "set-up", meta(0x58, bytes((4, 2, 24, 8))))]
    events.append((0, "set-up", meta(0x59, bytes((2, 0)))))
    for beat, per_minute in tempo:
        events.append((ticks(beat), "set-up", meta(0x51, struct.pack(">I", round(60_000_000 / per_minute))[1:])))
    return track(events)


def part_track(part):
    channel = part.channel
    events = [
        (0, "set-up", meta(0x03, part.name.encode("ascii"))),
        (0, "set-up", bytes((0xB0 | channel, 7, part.volume))),
        (0, "set-up", bytes((0xB0 | channel, 10, part.pan))),
        (0, "set-up", bytes((0xB0 | channel, 91, 60))),
        (0, "set-up", bytes((0xC0 | channel, part.program))),
    ]
    for note in part.notes:
        events.append((ticks(note.start), "on", bytes((0x90 | channel, note.pitch, note.velocity))))
        events.append((ticks(note.start + note.length), "off", bytes((0x80 | channel, note.pitch, 64))))
    return track(events)


def midi_bytes(title, tempo, parts):
    tracks = [tempo_track(title, tempo)] + [part_track(part) for part in parts]
    return chunk(b"MThd", struct.pack(">HHH", 1, len(tracks), TICKS_PER_BEAT)) + b"".join(tracks)
