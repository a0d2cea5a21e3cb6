"""A window's own pixels, without what lies behind its corners."""

import os
import struct
import time
import zlib
from typing import NamedTuple

from .waiting import LIMIT

# What looks the same for this long has no spinner and waits for nothing: a spinner turns in 0.9 s.
STILL = 1.2


class Picture(NamedTuple):
    width: int
    height: int
    rgba: bytes

    def is_painted(self):
        """Whether its middle is opaque."""
        middle = 4 * (self.width * (self.height // 2) + self.width // 2)
        return self.rgba[middle + 3] == 255

    def write_png(self, file):
        stride = 4 * self.width
        lines = (self.rgba[row * stride : (row + 1) * stride] for row in range(self.height))
        body = zlib.compress(b"".join(b"\0" + line for line in lines), 9)
        header = struct.pack(">IIBBBBB", self.width, self.height, 8, 6, 0, 0, 0)
        data = b"\x89PNG\r\n\x1a\n" + b"".join(
            _chunk(name, content)
            for name, content in ((b"IHDR", header), (b"IDAT", body), (b"IEND", b""))
        )
        with open(file, "wb") as output:
            output.write(data)


def _chunk(name, content):
    return (
        struct.pack(">I", len(content))
        + name
        + content
        + struct.pack(">I", zlib.crc32(name + content))
    )


def picture_of(processes, window):
    """What a translucent window holds now. None where that cannot be had: while the window is
    resized, or while something opaque, such as a help text, lies over it."""
    file = os.path.join(processes.logs, "window.xwd")
    if processes.run("xwd", "-silent", "-id", str(window), "-out", file).returncode != 0:
        return None
    with open(file, "rb") as dump:
        return _picture(dump.read())


def _picture(dump):
    """Reads a window dump of version 7 with the lowest byte of a pixel first."""
    words = struct.unpack(">25I", dump[:100])
    header_size, version, _, depth, width, height, _, byte_order = words[:8]
    bits, stride, colors = words[11], words[12], words[19]
    if version != 7 or byte_order != 0:
        raise AssertionError("the display's window dumps have an unknown form")
    pixels = bytearray(dump[header_size + 12 * colors :])
    if depth != 32 or bits != 32 or len(pixels) != stride * height or stride != 4 * width:
        return None
    pixels[0::4], pixels[2::4] = pixels[2::4], pixels[0::4]
    _divide_by_opacity(pixels)
    return Picture(width, height, bytes(pixels))


def _divide_by_opacity(pixels):
    """Windows hold colors times opacity, pictures hold colors."""
    for place, opacity in enumerate(pixels[3::4]):
        if 0 < opacity < 255:
            for index in range(4 * place, 4 * place + 3):
                pixels[index] = min(255, (pixels[index] * 255 + opacity // 2) // opacity)


def still_picture_of(processes, window, activity=lambda: None, limit=2 * LIMIT):
    """The window's picture once neither it nor what `activity` returns has changed for a while."""
    deadline = time.monotonic() + limit
    last, since = None, time.monotonic()
    while time.monotonic() < deadline:
        picture = picture_of(processes, window)
        state = (picture, activity())
        if state != last:
            last, since = state, time.monotonic()
        elif picture and picture.is_painted() and time.monotonic() - since >= STILL:
            return picture
        time.sleep(0.1)
    raise AssertionError(f"the window did not come to rest within {limit:g} s")
