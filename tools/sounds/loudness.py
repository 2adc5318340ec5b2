"""How loud a sound is to the ear, and bringing it to a wanted loudness.

The ear's weighting is the one of ITU-R BS.1770 (a high shelf and a high-pass); loudness is in LUFS and taken over
the loudest 0.4 s, so that a pop and a fanfare can be compared.
"""

import numpy

WINDOW = 0.4
# Where peaks begin to be bent, and what they never pass.
KNEE, CEILING = 0.5, 0.82


def _biquad(w, b, a):
    z = numpy.exp(-1j * w)
    return (b[0] + b[1] * z + b[2] * z * z) / (a[0] + a[1] * z + a[2] * z * z)


def _shelf(rate, frequency=1681.974, gain_db=3.99984, q=0.7071752):
    k = numpy.tan(numpy.pi * frequency / rate)
    high = 10 ** (gain_db / 20)
    band = high**0.4996667
    b = (high + band * k / q + k * k, 2 * (k * k - high), high - band * k / q + k * k)
    return b, (1 + k / q + k * k, 2 * (k * k - 1), 1 - k / q + k * k)


def _high_pass(rate, frequency=38.13547, q=0.5003270):
    k = numpy.tan(numpy.pi * frequency / rate)
    scale = 1 + k / q + k * k
    return (1, -2, 1), (1, 2 * (k * k - 1) / scale, (1 - k / q + k * k) / scale)


def weighted(channel, rate):
    # Padding keeps the filter's tail from coming round to the front.
    size = 1 << (len(channel) + rate // 2).bit_length()
    w = 2 * numpy.pi * numpy.fft.rfftfreq(size)
    shelf, high_pass = _shelf(rate), _high_pass(rate)
    return numpy.fft.irfft(numpy.fft.rfft(channel, size) * _biquad(w, *shelf) * _biquad(w, *high_pass), size)


def loudness(sound, rate):
    """LUFS of the loudest 0.4 s of a sound of shape (samples, channels)."""
    window = int(WINDOW * rate)
    power = 0
    for channel in sound.T:
        total = numpy.concatenate(([0.0], numpy.cumsum(weighted(channel, rate) ** 2)))
        power = power + (total[window:] - total[:-window]) / window
    return -0.691 + 10 * numpy.log10(max(float(numpy.max(power)), 1e-12))


def bent(sound):
    """Peaks above the knee pressed smoothly below the ceiling."""
    room = CEILING - KNEE
    over = numpy.maximum(numpy.abs(sound) - KNEE, 0)
    return numpy.where(over > 0, numpy.sign(sound) * (KNEE + room * numpy.tanh(over / room)), sound)


def levelled(sound, rate, wanted):
    """The sound at the wanted loudness; bending takes some away again, hence the rounds."""
    gain = 1.0
    for _ in range(12):
        missing = wanted - loudness(bent(sound * gain), rate)
        if abs(missing) < 0.02:
            break
        gain *= 10 ** (missing / 20)
    return bent(sound * gain)
