"""Writes a Windows icon file.

A header of 6 bytes, 16 bytes for each picture, then the pictures: the smaller ones as a bitmap without a file
header, rows from the bottom, blue first, followed by a mask of one bit a pixel; larger ones as PNG, which is what
resource compilers and old systems expect.
"""

import io
import struct

LARGEST_BITMAP = 128


def _bitmap(picture):
    width, height = picture.size
    # The height counts the mask too.
    head = struct.pack("<IiiHHIIiiII", 40, width, 2 * height, 1, 32, 0, 0, 0, 0, 0, 0)
    rows = picture.transpose(1).convert("RGBA")
    return head + rows.tobytes("raw", "BGRA") + _mask(rows)


def _mask(rows):
    """Set bits are see-through; a row is padded to whole words of 32 bits."""
    width, height = rows.size
    alpha = rows.getchannel("A").tobytes()
    stride = (width + 31) // 32 * 4
    data = b""
    for y in range(height):
        bits = "".join("0" if value else "1" for value in alpha[y * width : (y + 1) * width])
        data += int(bits.ljust(stride * 8, "0"), 2).to_bytes(stride, "big")
    return data


def _png(picture):
    buffer = io.BytesIO()
    picture.save(buffer, "PNG", optimize=True)
    return buffer.getvalue()


def ico_bytes(pictures, largest_bitmap=LARGEST_BITMAP):
    bodies = [_bitmap(p) if p.width <= largest_bitmap else _png(p) for p in pictures]
    data = struct.pack("<HHH", 0, 1, len(pictures))
    at = len(data) + 16 * len(pictures)
    for picture, body in zip(pictures, bodies):
        # An edge of 256 is written as 0.
        data += struct.pack("<BBBBHHII", picture.width % 256, picture.height % 256, 0, 0, 1, 32, len(body), at)
        at += len(body)
    return data + b"".join(bodies)
