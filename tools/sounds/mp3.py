"""Between samples and MP3 bytes, by way of the encoder `lame` (Debian package lame)."""

import struct
import subprocess

import numpy

HEADER = struct.Struct("<4sI4s4sIHHIIHH4sI")


def wav_bytes(sound, rate):
    """A 16-bit WAV file of samples from -1 to 1, of shape (samples, channels)."""
    channels = sound.shape[1]
    data = numpy.clip(numpy.round(sound * 32767), -32768, 32767).astype("<i2").tobytes()
    head = HEADER.pack(
        b"RIFF", 36 + len(data), b"WAVE", b"fmt ", 16, 1, channels, rate, rate * channels * 2, channels * 2, 16, b"data", len(data)
    )
    return head + data


def samples_of(wav):
    """(samples of shape (count, channels), rate) of a WAV file as wav_bytes and the decoder write it."""
    fields = HEADER.unpack_from(wav)
    channels, rate = fields[6], fields[7]
    data = numpy.frombuffer(wav, "<i2", offset=HEADER.size)
    return data[: len(data) // channels * channels].reshape(-1, channels) / 32768, rate


def _lame(arguments, data):
    return subprocess.run(["lame", "--quiet", *arguments, "-", "-"], input=data, stdout=subprocess.PIPE, check=True).stdout


def encoded(sound, rate, kilobits):
    mode = "j" if sound.shape[1] == 2 else "m"
    shape = ["-m", mode, "--cbr", "-b", str(kilobits), "-q", "2", "--resample", str(rate / 1000), "--noreplaygain", "--scale", "1"]
    return _lame(shape, wav_bytes(sound, rate))


def decoded(mp3):
    """What a player hears; the encoder's own delay is cut off."""
    return samples_of(_lame(["--mp3input", "--decode"], mp3))
