# SPDX-License-Identifier: MIT
"""Pictures of a screen: regions, comparison, and finding things by their colour."""

import struct
import zlib


class Picture:
    """Pixels in rows from the top, each three bytes: red, green, blue."""

    def __init__(self, width, height, pixels):
        self.width, self.height, self.pixels = width, height, pixels

    @classmethod
    def from_xwd(cls, dump):
        """A dump of a 24-bit screen as xwd writes it (XWDFile.h: a header of big-endian 32-bit words)."""
        header = struct.unpack(">20I", dump[:80])
        header_size, width, height, byte_order = header[0], header[4], header[5], header[7]
        bits_per_pixel, line_size, colors = header[11], header[12], header[19]
        if bits_per_pixel != 32:
            raise ValueError(f"a screen of {bits_per_pixel} bits per pixel")
        start = header_size + colors * 12
        data = b"".join(dump[start + row * line_size:start + row * line_size + width * 4] for row in range(height))
        red, green, blue = (2, 1, 0) if byte_order == 0 else (1, 2, 3)
        pixels = bytearray(width * height * 3)
        pixels[0::3], pixels[1::3], pixels[2::3] = data[red::4], data[green::4], data[blue::4]
        return cls(width, height, bytes(pixels))

    @classmethod
    def load(cls, path):
        """A PNG that save() wrote."""
        data, at, packed = path.read_bytes(), 8, b""
        width, height = struct.unpack(">2I", data[16:24])
        while at < len(data):
            length, kind = struct.unpack(">I4s", data[at:at + 8])
            packed += data[at + 8:at + 8 + length] if kind == b"IDAT" else b""
            at += length + 12
        lines, stride = zlib.decompress(packed), width * 3 + 1
        if len(lines) != height * stride or any(lines[0::stride]):
            raise ValueError(f"{path} is not as this program writes pictures")
        return cls(width, height, b"".join(lines[row * stride + 1:(row + 1) * stride] for row in range(height)))

    def pixel(self, x, y):
        start = (y * self.width + x) * 3
        return tuple(self.pixels[start:start + 3])

    def crop(self, area):
        """The part inside the area (x, y, width, height), as far as there is one."""
        x, y, width, height = area
        left, top = max(x, 0), max(y, 0)
        right, bottom = min(x + width, self.width), min(y + height, self.height)
        rows = [self.pixels[(row * self.width + left) * 3:(row * self.width + right) * 3] for row in range(top, bottom)]
        return Picture(right - left, bottom - top, b"".join(rows))

    def differs(self, other, area):
        """How many pixels of the area are not the same."""
        mine, others = self.crop(area).pixels, other.crop(area).pixels
        if mine == others:
            return 0
        if len(mine) != len(others):
            return max(len(mine), len(others)) // 3
        return sum(mine[i:i + 3] != others[i:i + 3] for i in range(0, len(mine), 3))

    def run(self, x, y, limit, tolerance=0):
        """How many pixels from (x, y) to the right have the same colour, up to the limit."""
        color = self.pixel(x, y)
        length = 1
        while length < limit and x + length < self.width:
            if any(abs(a - b) > tolerance for a, b in zip(color, self.pixel(x + length, y))):
                break
            length += 1
        return length

    def find_block(self, area, width=8, height=8):
        """The top left pixel of the first even block of a saturated colour in the area."""
        left, top, w, h = area
        for y in range(top, top + h - height):
            for x in range(left, left + w - width):
                color = self.pixel(x, y)
                if max(color) - min(color) < 40:
                    continue
                if self.run(x, y, width) == width and all(self.pixel(x, y + row) == color for row in range(height)):
                    return x, y
        return None

    def save(self, path):
        """Writes a PNG."""
        def chunk(kind, data):
            return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

        stride = self.width * 3
        rows = b"".join(b"\0" + self.pixels[row * stride:(row + 1) * stride] for row in range(self.height))
        path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">2I5B", self.width, self.height, 8, 2, 0, 0, 0))
                         + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))
