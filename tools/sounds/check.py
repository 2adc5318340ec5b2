"""What must hold in every sound as a player decodes it, since none of it can be judged by ear here."""

from dataclasses import dataclass

import numpy

from loudness import loudness

# A decoder may overshoot a little; from here on it would clip.
PEAK_LIMIT = 0.95
OFFSET_LIMIT = 0.002
# The first and the last 2 ms, against a peak of 1: no click.
EDGE = 0.002
EDGE_LIMIT = 0.02
LOUDNESS_SLACK = 1.0
BALANCE_LIMIT_DB = 3.0
QUIET = 0.003
RUMBLE_LIMIT, HISS_LIMIT = 0.1, 0.05


@dataclass(frozen=True)
class Wanted:
    """Durations and the longest silence in seconds, loudness in LUFS, size in bytes."""

    shortest: float
    longest: float
    loudness: float
    size: int
    silence: float


@dataclass(frozen=True)
class Measures:
    seconds: float
    size: int
    loudness: float
    peak: float
    rms: float
    offset: float
    first: float
    last: float
    silence: float
    balance_db: float
    rumble: float
    hiss: float
    middle: float

    def __str__(self):
        return (
            f"{self.seconds:6.2f} s {self.size:7d} bytes {self.loudness:6.1f} LUFS  peak {self.peak:.2f}  rms {self.rms:.3f}  "
            f"offset {self.offset:.4f}  ends {self.first:.4f} {self.last:.4f}  silence {self.silence:.2f} s  "
            f"balance {self.balance_db:+.1f} dB  below 60 Hz {self.rumble:.3f}  above 9 kHz {self.hiss:.3f}  middle {self.middle:.0f} Hz"
        )


def _longest_silence(sound, rate):
    """In seconds; what lies before the first and behind the last sound counts too."""
    step = int(0.01 * rate)
    blocks = sound[: len(sound) // step * step].reshape(-1, step * sound.shape[1])
    longest = run = 0
    for loud in numpy.max(numpy.abs(blocks), axis=1) > QUIET:
        run = 0 if loud else run + 1
        longest = max(longest, run)
    return longest * step / rate


def measured(sound, rate, size):
    power = numpy.sum(numpy.abs(numpy.fft.rfft(sound, axis=0)) ** 2, axis=1)
    frequencies = numpy.fft.rfftfreq(len(sound), 1 / rate)
    total = max(float(numpy.sum(power)), 1e-12)
    sides = numpy.sqrt(numpy.mean(sound**2, axis=0)) + 1e-9
    edge = int(EDGE * rate)
    return Measures(
        seconds=len(sound) / rate,
        size=size,
        loudness=loudness(sound, rate),
        peak=float(numpy.max(numpy.abs(sound))),
        rms=float(numpy.sqrt(numpy.mean(sound**2))),
        offset=float(numpy.max(numpy.abs(numpy.mean(sound, axis=0)))),
        first=float(numpy.max(numpy.abs(sound[:edge]))),
        last=float(numpy.max(numpy.abs(sound[-edge:]))),
        silence=_longest_silence(sound, rate),
        balance_db=float(20 * numpy.log10(sides[0] / sides[-1])),
        rumble=float(numpy.sum(power[frequencies < 60])) / total,
        hiss=float(numpy.sum(power[frequencies > 9000])) / total,
        middle=float(numpy.sum(power * frequencies)) / total,
    )


def faults(m, wanted):
    """One line for each thing that is off."""
    rules = (
        (not wanted.shortest <= m.seconds <= wanted.longest, f"lasts {m.seconds:.2f} s"),
        (m.size > wanted.size, f"has {m.size} bytes"),
        (abs(m.loudness - wanted.loudness) > LOUDNESS_SLACK, f"is at {m.loudness:.1f} LUFS"),
        (m.peak > PEAK_LIMIT, f"peaks at {m.peak:.2f}"),
        (m.offset > OFFSET_LIMIT, f"is off centre by {m.offset:.4f}"),
        (m.first > EDGE_LIMIT, f"starts with a click of {m.first:.3f}"),
        (m.last > EDGE_LIMIT, f"ends with a click of {m.last:.3f}"),
        (m.silence > wanted.silence, f"is silent for {m.silence:.2f} s"),
        (abs(m.balance_db) > BALANCE_LIMIT_DB, f"leans to one side by {m.balance_db:.1f} dB"),
        (m.rumble > RUMBLE_LIMIT, f"rumbles: {m.rumble:.2f} of it is below 60 Hz"),
        (m.hiss > HISS_LIMIT, f"hisses: {m.hiss:.2f} of it is above 9 kHz"),
    )
    return [text for wrong, text in rules if wrong]
