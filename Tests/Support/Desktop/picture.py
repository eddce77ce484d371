"""Pictures of the virtual screen, read from the X server's own frame buffer."""

import collections
import mmap
import pathlib
import struct
import zlib

Box = collections.namedtuple("Box", "left top width height")

# The colour of the status icon's dot. A host's scaling may change each of its parts by the
# tolerance.
DOT_COLOUR = (224, 138, 60)
DOT_TOLERANCE = 6

BYTES_PER_PIXEL = 4
PREVAILING_SHARE = 0.95


def within_tolerance(part):
    accepted = range(part - DOT_TOLERANCE, part + DOT_TOLERANCE + 1)
    return bytes(value in accepted for value in range(256))


class Picture:
    """A rectangle of pixels at one moment, four bytes each: blue, green, red, unused."""

    def __init__(self, width, height, pixels):
        self.width = width
        self.height = height
        self.pixels = pixels

    def __eq__(self, other):
        return self.pixels == other.pixels and self.width == other.width

    def crop(self, box):
        stride = self.width * BYTES_PER_PIXEL
        left = box.left * BYTES_PER_PIXEL
        right = left + box.width * BYTES_PER_PIXEL
        rows = range(box.top, box.top + box.height)
        lines = [self.pixels[row * stride + left : row * stride + right] for row in rows]
        return Picture(box.width, box.height, b"".join(lines))

    def dot(self):
        """The smallest box around everything in the dot's colour, or None."""
        found = [divmod(index, self.width) for index in self._dot_indices()]
        if not found:
            return None
        rows = [row for row, _ in found]
        columns = [column for _, column in found]
        width = max(columns) - min(columns) + 1
        height = max(rows) - min(rows) + 1
        return Box(min(columns), min(rows), width, height)

    def line_around(self):
        """The colour of the line along all four edges, or None if there is no complete line."""
        edges = [Box(0, row, self.width, 1) for row in (0, self.height - 1)]
        edges += [Box(column, 0, 1, self.height) for column in (0, self.width - 1)]
        colours = {self.crop(edge)._prevailing_colour() for edge in edges}
        return colours.pop() if len(colours) == 1 else None

    def write_png(self, path):
        """Writes the picture as a PNG file and returns its path."""
        path = pathlib.Path(path)
        path.parent.mkdir(parents=True, exist_ok=True)
        header = struct.pack(">IIBBBBB", self.width, self.height, 8, 2, 0, 0, 0)
        chunks = [(b"IHDR", header), (b"IDAT", zlib.compress(self._rgb_lines())), (b"IEND", b"")]
        with open(path, "wb") as file:
            file.write(b"\x89PNG\r\n\x1a\n")
            for kind, data in chunks:
                file.write(struct.pack(">I", len(data)) + kind + data)
                file.write(struct.pack(">I", zlib.crc32(kind + data)))
        return path

    def _prevailing_colour(self):
        """The colour of nearly all pixels, or None. The pointer may cover some of them."""
        colours = collections.Counter(zip(*(self.pixels[part::4] for part in range(3))))
        (colour, count), = colours.most_common(1)
        return colour if count >= PREVAILING_SHARE * self.width * self.height else None

    def _dot_indices(self):
        red, green, blue = DOT_COLOUR
        planes = [(0, blue), (1, green), (2, red)]
        matches = [
            int.from_bytes(self.pixels[offset::4].translate(within_tolerance(part)), "big")
            for offset, part in planes
        ]
        both = matches[0] & matches[1] & matches[2]
        mask = both.to_bytes(self.width * self.height, "big")
        index = mask.find(1)
        while index >= 0:
            yield index
            index = mask.find(1, index + 1)

    def _rgb_lines(self):
        rgb = bytearray(self.width * self.height * 3)
        for plane in range(3):
            rgb[plane::3] = self.pixels[2 - plane :: 4]
        stride = self.width * 3
        return b"".join(
            b"\0" + rgb[start : start + stride] for start in range(0, len(rgb), stride)
        )


class FrameBuffer:
    """The screen of an X server that was started with -fbdir: an X window dump, always current."""

    _HEADER_WORDS = 25

    def __init__(self, path):
        with open(path, "rb") as file:
            self._memory = mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ)
        words = struct.unpack_from(f">{self._HEADER_WORDS}I", self._memory)
        header_size, self._width, self._height = words[0], words[4], words[5]
        colours, bits_per_pixel, line_bytes = words[19], words[11], words[12]
        if bits_per_pixel != 8 * BYTES_PER_PIXEL or line_bytes != self._width * BYTES_PER_PIXEL:
            raise ValueError(f"a screen of {bits_per_pixel} bits a pixel cannot be read")
        colour_entry_bytes = 12
        self._start = header_size + colours * colour_entry_bytes

    def picture(self):
        size = self._width * self._height * BYTES_PER_PIXEL
        return Picture(self._width, self._height, self._memory[self._start : self._start + size])

    def close(self):
        self._memory.close()
