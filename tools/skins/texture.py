"""Wood, felt and paper out of noise that repeats without a seam and is the same in every run."""

from PIL import Image

from raster import mix, pixels, scale
from strips import pixel, sample


def _hash(x, y, seed):
    value = (x * 374761393 + y * 668265263 + seed * 2246822519) & 0xFFFFFFFF
    value = ((value ^ value >> 13) * 1274126177) & 0xFFFFFFFF
    return ((value ^ value >> 16) & 0xFFFF) / 65535


def _smooth(t):
    return t * t * (3 - 2 * t)


def noise(x, y, periods_x, periods_y, seed):
    """Value noise 0..1 on a lattice that repeats after the given whole numbers of cells."""
    x0, y0 = int(x // 1), int(y // 1)
    fx, fy = _smooth(x - x0), _smooth(y - y0)
    ax, bx = x0 % periods_x, (x0 + 1) % periods_x
    ay, by = y0 % periods_y, (y0 + 1) % periods_y
    upper = _hash(ax, ay, seed) * (1 - fx) + _hash(bx, ay, seed) * fx
    lower = _hash(ax, by, seed) * (1 - fx) + _hash(bx, by, seed) * fx
    return upper * (1 - fy) + lower * fy


def _painted(width, height, colour_at):
    """A picture of design size; colour_at gets x and y in design pixels."""
    image = Image.new("RGBA", pixels(width, height))
    columns, rows = ([sample(i) for i in range(side)] for side in image.size)
    image.putdata([pixel(colour_at(x, y)) for y in rows for x in columns])
    return image


def _detail(x, y, seed):
    """-0.5..0.5, another value in each pixel, where pixels are finer than the design's; else 0.

    Noise between two design pixels is smooth, and without this a texture would look out of focus.
    """
    return 0.0 if scale() == 1 else _hash(round(x * 12), round(y * 12), seed) - 0.5


def _ramp(stops, value):
    value = min(max(value, 0.0), 1.0) * (len(stops) - 1)
    index = min(int(value), len(stops) - 2)
    return mix(stops[index], stops[index + 1], value - index)


def wood(width, height, stops, seed, figure=1.0):
    """A board with its grain along x; repeats along x. `stops` run from the dark pores to the light wood.

    figure: how much the grain wanders, 0 for ruler-straight.
    """
    long, mid, fine = max(1, width // 128), max(1, width // 64), max(1, width // 16)

    def colour_at(x, y):
        u, t = x / width, float(y)
        t += figure * 5 * (noise(u * mid, y / 22, mid, 64, seed) - 0.5)
        rings = noise(u * long, t / 3.2, long, 512, seed + 1)
        band = noise(u * long, t / 11, long, 128, seed + 2)
        fibre = noise(u * fine, t * 1.1, fine, 2048, seed + 3)
        pore = noise(u * fine * 2, y * 0.9, fine * 2, 2048, seed + 4)
        value = 0.42 * rings + 0.36 * band + 0.22 * fibre
        value = 0.5 + (value - 0.5) * 1.5 - (0.16 if pore > 0.84 else 0)
        if scale() > 1:
            value += 0.18 * (noise(u * fine, t * 2.7, fine, 4096, seed + 5) - 0.5)
        return _ramp(stops, value)

    return _painted(width, height, colour_at)


def turned(board):
    """The board upright: grain along y, repeating along y."""
    return board.transpose(Image.TRANSPOSE)


def _lightened(base, step):
    return tuple(min(255, max(0, v + step)) for v in base[:3]) + (base[3],)


def cloth(size, base, depth, seed):
    """Felt: short soft fibres that repeat in both directions. depth: lightness steps up and down."""

    def colour_at(x, y):
        a = noise(x / 2, y / 2, size // 2, size // 2, seed)
        b = noise((x + y) / 4, (y - x) / 2, size // 4, size // 2, seed + 1)
        c = noise(x / 16, y / 16, size // 16, size // 16, seed + 2)
        grain = noise(x, y, size, size, seed + 3) + _detail(x, y, seed + 4)
        return _lightened(base, depth * (0.9 * (a - 0.5) + 0.8 * (b - 0.5) + 0.5 * (c - 0.5) + 0.7 * (grain - 0.5)))

    return _painted(size, size, colour_at)


def paper(size, base, depth, seed):
    """Paper: faint clouds and single fibres, repeating in both directions."""

    def colour_at(x, y):
        cloud = noise(x / 32, y / 32, size // 32, size // 32, seed)
        tooth = noise(x / 1.6, y / 1.6, int(size / 1.6), int(size / 1.6), seed + 1) + 0.6 * _detail(x, y, seed + 3)
        step = depth * (0.7 * (cloud - 0.5) + 0.9 * (tooth - 0.5))
        if _hash(round(x) // 3, round(y), seed + 2) > 0.992:
            step -= depth * 0.9
        return _lightened(base, step)

    return _painted(size, size, colour_at)
