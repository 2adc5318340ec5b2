"""Tests of the generator: run with `/usr/bin/python3 -B -m unittest` in this folder."""

import os
import struct
import unittest

import numpy

import fun
from check import Wanted, faults, measured
from instruments import PITCHED
from loudness import levelled, loudness
from midi_file import midi_bytes, track, variable_length
from mp3 import decoded, encoded
from notes import frequency_of, line, pitch_of
from shape import banded
from tune import BARS, TEMPO, TITLE, parts, seconds_at

RATE = 44100
MUSIC = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "assets", "Sound", "about.mp3")


def tone(frequency, level=0.2, seconds=1.0):
    t = numpy.arange(int(seconds * RATE)) / RATE
    return level * numpy.sin(2 * numpy.pi * frequency * t) * numpy.clip(numpy.minimum(t, seconds - t) / 0.05, 0, 1)


def strongest(sound, rate):
    """The frequency of the highest peak, in Hz."""
    spectrum = numpy.abs(numpy.fft.rfft(sound * numpy.hanning(len(sound)), 8 * len(sound)))
    return numpy.argmax(spectrum) * rate / (8 * len(sound))


def strongest_along(sound, count):
    return [strongest(piece, fun.RATE) for piece in numpy.array_split(sound, count)]


class MidiReader:
    """Reads a file as a player does: collects (channel, start tick, end tick, pitch, velocity) and tempo changes."""

    def __init__(self, data):
        kind, size, self.format, count, self.division = struct.unpack(">4sIHHH", data[:14])
        assert (kind, size) == (b"MThd", 6)
        self.notes, self.tempo, self.programs, at = [], [], {}, 14
        for _ in range(count):
            kind, size = struct.unpack(">4sI", data[at : at + 8])
            assert kind == b"MTrk"
            self._read_track(data[at + 8 : at + 8 + size])
            at += 8 + size
        assert at == len(data)

    def _read_track(self, data):
        at, now, sounding = 0, 0, {}
        while True:
            step, at = self._number(data, at)
            now += step
            status = data[at]
            channel, kind = status & 15, status >> 4
            if status == 0xFF:
                size, body = self._number(data, at + 2)
                if data[at + 1] == 0x51:
                    self.tempo.append((now, int.from_bytes(data[body : body + size], "big")))
                if data[at + 1] == 0x2F:
                    assert body + size == len(data) and not sounding
                    return
                at = body + size
            elif kind == 0xC:
                self.programs[channel] = data[at + 1]
                at += 2
            else:
                pitch, value = data[at + 1], data[at + 2]
                assert max(pitch, value) < 128
                if kind == 9:
                    assert pitch not in sounding, "a note begins while it sounds"
                    sounding[pitch] = (now, value)
                elif kind == 8:
                    start, velocity = sounding.pop(pitch)
                    self.notes.append((channel, start, now, pitch, velocity))
                at += 3

    @staticmethod
    def _number(data, at):
        value = 0
        while True:
            value = value << 7 | data[at] & 0x7F
            at += 1
            if not data[at - 1] & 0x80:
                return value, at


class Notation(unittest.TestCase):
    def test_names(self):
        self.assertEqual([pitch_of(n) for n in ("C4", "A4", "F#5", "Bb2", "C-1")], [60, 69, 78, 46, 0])
        self.assertEqual(line("r:2 A4:6 | Bb4:8", 3), [(13.0, 3.0, 69), (16.0, 4.0, 70)])

    def test_bars_must_be_full(self):
        for text in ("A4:7", "A4:8 | A4:4 B4:5", "A4:8 |"):
            self.assertRaises(ValueError, line, text)


class Midi(unittest.TestCase):
    def test_variable_length(self):
        known = {0: "00", 0x7F: "7f", 0x80: "8100", 0x3FFF: "ff7f", 0x4000: "818000", 0xFFFFFFF: "ffffff7f"}
        self.assertEqual({n: variable_length(n).hex() for n in known}, known)
        self.assertRaises(ValueError, variable_length, -1)

    def test_a_note_ends_before_the_same_one_begins(self):
        on, off = bytes((0x90, 60, 80)), bytes((0x80, 60, 64))
        data = track([(0, "on", on), (96, "on", on), (96, "off", off), (192, "off", off)])
        self.assertIn(b"\x60" + off + b"\x00" + on, data)

    def test_a_reader_finds_the_score_again(self):
        reader = MidiReader(midi_bytes(TITLE, TEMPO, parts()))
        score = [
            (part.channel, round(n.start * 480), round((n.start + n.length) * 480), n.pitch, n.velocity)
            for part in parts()
            for n in part.notes
        ]
        self.assertEqual((reader.format, reader.division), (1, 480))
        self.assertEqual(sorted(reader.notes), sorted(score))
        self.assertEqual(reader.programs, {part.channel: part.program for part in parts()})
        # The length by the file's own tempo events is the length that the rendering goes by.
        end, seconds = max(note[2] for note in reader.notes), 0
        for (tick, micros), (after, _) in zip(reader.tempo, reader.tempo[1:] + [(end, 0)]):
            seconds += (after - tick) / reader.division * micros / 1e6
        self.assertAlmostEqual(seconds, seconds_at(4 * BARS), places=3)
        self.assertTrue(40 <= seconds <= 60)

    def test_parts_keep_to_what_their_instruments_can_play(self):
        ranges = {"Flute": "C4 C7", "Celesta": "C4 C8", "Guitar": "E2 C6", "Strings": "G2 C6", "Bass": "E1 G3"}
        for part in parts():
            if part.name in ranges:
                low, high = (pitch_of(name) for name in ranges[part.name].split())
                pitches = [note.pitch for note in part.notes]
                self.assertTrue(low <= min(pitches) and max(pitches) <= high, part.name)


class Music(unittest.TestCase):
    def test_instruments_are_in_tune(self):
        for name, play in PITCHED.items():
            for pitch in ("A2", "A4"):
                wanted = frequency_of(pitch_of(pitch))
                found = strongest(play(wanted, 1.0, 32000), 32000)
                with self.subTest(name, pitch=pitch):
                    self.assertLess(abs(1200 * numpy.log2(found / wanted)), 8)

    def test_the_recording_plays_the_tune(self):
        with open(MUSIC, "rb") as file:
            sound, rate = decoded(file.read())
        heard = 0
        notes = [n for n in parts()[0].notes if n.length >= 1.5]
        for note in notes:
            start, end = (int(seconds_at(b) * rate) for b in (note.start + 0.1, note.start + note.length))
            piece = sound[start:end].sum(axis=1) * numpy.hanning(end - start)
            levels = []
            for cents in (0, -50, 50):
                angle = 2 * numpy.pi * frequency_of(note.pitch) * 2 ** (cents / 1200) / rate * numpy.arange(len(piece))
                levels.append(abs(numpy.sum(piece * numpy.exp(-1j * angle))))
            heard += levels[0] > 3 * max(levels[1:])
        self.assertGreater(len(notes), 15)
        self.assertEqual(heard, len(notes))


class Fun(unittest.TestCase):
    def test_pitches_go_where_the_joke_goes(self):
        whistle = strongest_along(fun.slide_whistle(), 6)
        self.assertEqual(whistle[:2], sorted(whistle[:2]))
        self.assertEqual(whistle[3:], sorted(whistle[3:], reverse=True))
        self.assertGreater(max(whistle), 2.5 * max(whistle[0], whistle[-1]))
        bubbles = strongest_along(fun.bubbles()[: int(1.3 * fun.RATE)], 3)
        self.assertEqual(bubbles, sorted(bubbles))
        # The mute lifts one harmonic after another, so the note itself is looked for where the sighs lie.
        horn = banded(fun.sad_horn(), fun.RATE, 180, 320)
        sighs = [strongest(horn[int(at * fun.RATE) : int((at + 0.2) * fun.RATE)], fun.RATE) for at in (0.08, 0.5, 1.0)]
        falls = [12 * numpy.log2(first / second) for first, second in zip(sighs, sighs[1:])]
        self.assertAlmostEqual(falls[0], 1, delta=0.4)
        self.assertAlmostEqual(falls[1], 2, delta=0.4)

    def test_two_runs_give_the_same_bytes(self):
        for sound in (fun.corks, fun.robot):
            self.assertEqual(*(encoded(0.2 * sound()[:, None], RATE, 96) for _ in range(2)))


class Loudness(unittest.TestCase):
    def test_reference_tone(self):
        t = numpy.arange(RATE * 2) / RATE
        full = numpy.sin(2 * numpy.pi * 997 * t)
        self.assertAlmostEqual(loudness(full[:, None], RATE), -3.01, delta=0.05)
        self.assertAlmostEqual(loudness(numpy.stack((full, full), axis=1), RATE), 0.0, delta=0.05)

    def test_levelling_reaches_the_aim_without_clipping(self):
        spiky = tone(500, 0.05)
        spiky[20000:20040] += 0.9
        result = levelled(spiky[:, None], RATE, -16)
        self.assertAlmostEqual(loudness(result, RATE), -16, delta=0.1)
        self.assertLess(numpy.max(numpy.abs(result)), 0.83)


class Check(unittest.TestCase):
    WANTED = Wanted(0.5, 2, -16, 30000, 0.3)

    def found(self, sound, size=20000):
        return faults(measured(sound if sound.ndim == 2 else sound[:, None], RATE, size), self.WANTED)

    def test_a_sound_one_passes_and_each_flaw_is_found(self):
        good = levelled(tone(700)[:, None], RATE, -16)[:, 0]
        self.assertEqual(self.found(good), [])
        click, pause, peak = good.copy(), good.copy(), good.copy()
        click[:30] += 0.3
        pause[15000:32000] = 0
        peak[20000] = 0.99
        flaws = {
            "lasts 0.30": good[: int(0.3 * RATE)],
            "LUFS": good * 0.8,
            "peaks at": peak,
            "off centre": good + 0.003,
            "starts with a click": click,
            "ends with a click": click[::-1],
            "is silent": pause,
            "leans": numpy.stack((good, good / 2), axis=1),
            "rumbles": good + tone(40, 0.2),
            "hisses": good + tone(11000, 0.1),
        }
        for wanted, sound in flaws.items():
            with self.subTest(wanted):
                self.assertTrue(any(wanted in fault for fault in self.found(sound)), self.found(sound))
        self.assertEqual(self.found(good, 40000), ["has 40000 bytes"])


if __name__ == "__main__":
    unittest.main()
