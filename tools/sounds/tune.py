""""Panes of Light", the piece of the credits window: 22 bars in D for flute, celesta, guitar, strings, bass and
a little percussion. Its ground is the chords below; the tune lies over them from the third bar on."""

from dataclasses import dataclass

from notes import EIGHTHS_PER_BAR, EIGHTHS_PER_BEAT, Note, line, pitch_of

TITLE = "Panes of Light"
BEATS_PER_BAR = EIGHTHS_PER_BAR // EIGHTHS_PER_BEAT

# Four notes of each chord from the bottom, as the guitar takes them.
CHORDS = {
    "D": "D3 A3 D4 F#4",
    "Dmaj9": "D3 A3 C#4 E4",
    "Dadd9": "D3 A3 E4 F#4",
    "Gmaj7/D": "D3 G3 B3 F#4",
    "A/C#": "C#3 A3 C#4 E4",
    "Bm7": "B2 F#3 A3 D4",
    "Gmaj7": "G2 D3 B3 F#4",
    "D/F#": "F#2 D3 A3 D4",
    "G": "G2 D3 G3 B3",
    "Em7": "E3 B3 D4 G4",
    "A7sus": "A2 E3 G3 D4",
    "A7": "A2 E3 G3 C#4",
    "Bm": "B2 F#3 B3 D4",
    "D/A": "A2 F#3 A3 D4",
    "A": "A2 E3 A3 C#4",
    "E7/G#": "G#2 E3 B3 D4",
    "Gm6": "G2 D3 Bb3 E4",
    "G/B": "B2 D3 G3 D4",
    "Gm/Bb": "Bb2 D3 G3 D4",
}

INTRO = "Dadd9 | Gmaj7/D"
FIRST = "D | A/C# | Bm7 | Gmaj7 | D/F# | G | Em7 | A7sus A7"
SECOND = "Bm | G | D/A | A | Bm | E7/G# | G Gm6 | D/A A7"
CLOSE = "D | A/C# | G/B Gm/Bb | Dadd9"
GROUND = " | ".join((INTRO, FIRST, SECOND, CLOSE))
BARS = GROUND.count("|") + 1

FIRST_BAR, SECOND_BAR, CLOSE_BAR, LAST_BAR = 2, 10, 18, 21

FIRST_TUNE = """
    F#5:3 E5:1 D5:2 A4:2 | E5:3 C#5:1 A4:4 | D5:3 C#5:1 D5:2 F#5:2 | B4:4 r:1 D5:1 E5:1 F#5:1 |
    A5:3 F#5:1 D5:2 F#5:2 | G5:3 F#5:1 G5:1 A5:1 B5:2 | G5:3 E5:1 F#5:1 G5:1 E5:2 | D5:3 E5:1 C#5:4"""
SECOND_TUNE = """
    D5:2 F#5:2 B5:3 A5:1 | G5:2 B5:2 D6:3 C#6:1 | A5:3 F#5:1 D5:2 E5:1 F#5:1 | E5:5 r:1 C#5:1 E5:1 |
    F#5:3 D5:1 B4:2 D5:2 | E5:2 G#5:2 B5:3 A5:1 | B5:3 A5:1 Bb5:2 G5:2 | F#5:3 E5:1 G5:1 F#5:1 E5:1 C#5:1"""
CLOSE_TUNE = "D5:3 E5:1 F#5:2 A5:2 | E5:3 F#5:1 E5:4 | D5:3 B4:1 Bb4:2 G5:2 | F#5:8"

# Falls of single notes where the tune rests.
SPARKLE = """
    r:4 F#6:1 E6:1 A5:2 | r:4 D6:1 B5:1 F#5:2"""
LAST_SPARKLE = "r:2 A5:1 D6:1 E6:1 F#6:1 A6:2"

GUITAR_ORDER = (0, 1, 2, 3, 2, 1, 2, 3)
SHAKER, TRIANGLE = 82, 81
LOWEST_BASS = pitch_of("A1")

# (from beat, beats a minute): the last turn holds back.
TEMPO = ((0, 104), (BEATS_PER_BAR * 20, 92), (BEATS_PER_BAR * 20 + 2, 80), (BEATS_PER_BAR * 21, 66))


@dataclass(frozen=True)
class Part:
    """Channel and General MIDI program count from 0; pan and volume are 0 to 127, 64 being the middle."""

    name: str
    channel: int
    program: int
    pan: int
    volume: int
    notes: tuple


def ground():
    """(start beat, length in beats, the chord's pitches)."""
    for number, bar in enumerate(GROUND.split("|")):
        names = bar.split()
        length = BEATS_PER_BAR / len(names)
        for place, name in enumerate(names):
            pitches = [pitch_of(word) for word in CHORDS[name].split()]
            yield number * BEATS_PER_BAR + place * length, length, pitches


def _sung(text, first_bar, velocity, up=0):
    """A line with its bar starts leant on a little."""
    return [
        Note(start, length, pitch + up, velocity + (6 if start % BEATS_PER_BAR == 0 else 0))
        for start, length, pitch in line(text, first_bar)
    ]


def _flute():
    return _sung(FIRST_TUNE, FIRST_BAR, 82) + _sung(SECOND_TUNE, SECOND_BAR, 90) + _sung(CLOSE_TUNE, CLOSE_BAR, 80)


def _celesta():
    return (
        _sung(SPARKLE, 0, 62)
        + _sung(SECOND_TUNE, SECOND_BAR, 52, up=12)
        + _sung(CLOSE_TUNE.rsplit("|", 1)[0], CLOSE_BAR, 46, up=12)
        + _sung(LAST_SPARKLE, LAST_BAR, 56)
    )


def _guitar():
    notes = []
    for start, length, pitches in ground():
        if start >= LAST_BAR * BEATS_PER_BAR:
            # The last chord is rolled and left to ring.
            notes += [Note(start + 0.125 * i, length - 0.125 * i, pitch, 70) for i, pitch in enumerate(pitches)]
            continue
        for step in range(round(length * EIGHTHS_PER_BEAT)):
            pitch = pitches[GUITAR_ORDER[step]]
            notes.append(Note(start + step / EIGHTHS_PER_BEAT, 0.9, pitch, 76 if step == 0 else 58 + 4 * (step % 2)))
    return notes


def _strings():
    return [Note(start, length, pitch, 60) for start, length, pitches in ground() if start >= BEATS_PER_BAR for pitch in pitches[1:]]


def _bass():
    notes = []
    for start, length, pitches in ground():
        # Small loudspeakers are deaf to the lowest notes of a bass.
        root = pitches[0] - 12 if pitches[0] > LOWEST_BASS + 12 else pitches[0]
        if start < FIRST_BAR * BEATS_PER_BAR or start >= LAST_BAR * BEATS_PER_BAR or length < BEATS_PER_BAR:
            notes.append(Note(start, length, root, 74))
        else:
            notes += [Note(start, 1.5, root, 80), Note(start + 1.5, 0.5, root, 60), Note(start + 2, 2, root, 70)]
    return notes


def _percussion():
    notes = [Note(bar * BEATS_PER_BAR, 2, TRIANGLE, 50) for bar in (FIRST_BAR, SECOND_BAR, CLOSE_BAR)]
    for step in range((FIRST_BAR + 4) * EIGHTHS_PER_BAR, (LAST_BAR - 1) * EIGHTHS_PER_BAR):
        notes.append(Note(step / EIGHTHS_PER_BEAT, 0.4, SHAKER, 48 if step % 4 == 2 else 28))
    return notes


def parts():
    return [
        Part("Flute", 0, 73, 60, 100, tuple(_flute())),
        Part("Celesta", 1, 8, 84, 92, tuple(_celesta())),
        Part("Guitar", 2, 24, 44, 92, tuple(_guitar())),
        Part("Strings", 3, 48, 74, 70, tuple(_strings())),
        Part("Bass", 4, 32, 64, 96, tuple(_bass())),
        Part("Percussion", 9, 0, 92, 70, tuple(_percussion())),
    ]


def seconds_at(beat):
    """The time of a beat from the start of the piece."""
    total = 0.0
    for (start, tempo), (end, _) in zip(TEMPO, TEMPO[1:] + ((float("inf"), 0),)):
        if beat <= start:
            break
        total += (min(beat, end) - start) * 60 / tempo
    return total
