"""The directory of a compiled help file: which streams it holds, and how to put plain ones into it.

A compiled help file is an ITSF container: a header, a directory of named streams, and their bytes. A stream lies in
section 0, where its bytes stand as they are, or in section 1, which is compressed. chmcmd compresses; this module
leaves what it wrote where it is and adds or replaces streams in section 0, at the file's end. It writes the directory
anew, since names must stay in order. It does not decompress: chmls does.
"""

import struct

_HEADER = struct.Struct("<4s5I16s16s5Q")  # version 3
_HEADER_TIME = 4  # its place among the header's fields
_CHUNK = 4096
_QUICK_EVERY = 5  # one quick reference in 1 + 2**2 entries, as the directory header says
_LISTING_HEAD = 20
_INDEX_HEAD = 8


class Damaged(Exception):
    """The file is not laid out as an ITSF container of version 3."""


def _encode(number):
    """An integer in seven bits a byte, the highest first; all bytes but the last have bit 7 set."""
    out = [number & 0x7F]
    while number > 0x7F:
        number >>= 7
        out.append(number & 0x7F | 0x80)
    return bytes(reversed(out))


def _decode(data, at):
    number = 0
    while True:
        byte = data[at]
        at += 1
        number = number << 7 | byte & 0x7F
        if byte < 0x80:
            return number, at


class Directory:
    """The streams of one file, by name: (section, offset in the section, length)."""

    def __init__(self, data):
        if len(data) < _HEADER.size or data[:4] != b"ITSF" or struct.unpack_from("<I", data, 4)[0] != 3:
            raise Damaged("no ITSF header")
        self._header = list(_HEADER.unpack_from(data))
        sizes_at, self._sizes_length, at, length, content = self._header[8:]
        self._sizes = data[sizes_at:sizes_at + self._sizes_length]
        self._content = bytearray(data[content:])
        if data[at:at + 4] != b"ITSP":
            raise Damaged("no ITSP directory")
        self._head = bytearray(data[at:at + 0x54])
        if struct.unpack_from("<I", self._head, 0x10)[0] != _CHUNK:
            raise Damaged("unusual directory chunks")
        self.entries = {}
        for start in range(at + 0x54, at + length, _CHUNK):
            self._read_chunk(data[start:start + _CHUNK])

    def _read_chunk(self, chunk):
        if chunk[:4] != b"PMGL":
            return
        end = _CHUNK - struct.unpack_from("<I", chunk, 4)[0]
        at = _LISTING_HEAD
        while at < end:
            length, at = _decode(chunk, at)
            name = chunk[at:at + length].decode("utf-8")
            section, at = _decode(chunk, at + length)
            offset, at = _decode(chunk, at)
            size, at = _decode(chunk, at)
            self.entries[name] = (section, offset, size)

    def plain(self, name):
        """The bytes of a stream of section 0."""
        section, offset, size = self.entries[name]
        if section != 0:
            raise Damaged(name + " is compressed")
        return bytes(self._content[offset:offset + size])

    def put(self, name, data):
        """Adds or replaces a stream. What a replaced one held stays in the file, unnamed."""
        self.entries[name] = (0, len(self._content), len(data))
        self._content += data

    def overwrite(self, name, data):
        """Gives a stream of section 0 other bytes of the same length, in their place."""
        section, offset, size = self.entries[name]
        if section != 0 or size != len(data):
            raise Damaged(name + " cannot be overwritten")
        self._content[offset:offset + size] = data

    def set_time(self, time):
        """The time of compilation in the header. Viewers only compare it with that of their own saved settings."""
        self._header[_HEADER_TIME] = time

    def to_bytes(self):
        listings, first_names = self._listings()
        index = [_index_chunk(first_names)] if len(listings) > 1 else []
        chunks = listings + index
        struct.pack_into("<iiiii", self._head, 0x18, 2 if index else 1, len(listings) if index else -1, 0,
                         len(listings) - 1, -1)
        struct.pack_into("<I", self._head, 0x2C, len(chunks))
        directory = bytes(self._head) + b"".join(chunks)
        header = list(self._header)
        header[10] = header[8] + header[9]
        header[11] = len(directory)
        header[12] = header[10] + header[11]
        sizes = bytearray(self._sizes)
        struct.pack_into("<Q", sizes, 8, header[12] + len(self._content))
        return _HEADER.pack(*header) + bytes(sizes) + directory + bytes(self._content)

    def _listings(self):
        chunks, names, body, offsets = [], [], b"", []
        for name in sorted(self.entries, key=_order):
            section, offset, size = self.entries[name]
            text = name.encode("utf-8")
            entry = _encode(len(text)) + text + _encode(section) + _encode(offset) + _encode(size)
            if _LISTING_HEAD + len(body) + len(entry) + _quick_length(len(offsets) + 1) > _CHUNK:
                chunks.append((body, offsets))
                body, offsets = b"", []
            if not offsets:
                names.append(name)
            offsets.append(len(body))
            body += entry
        chunks.append((body, offsets))
        out = []
        for number, (body, offsets) in enumerate(chunks):
            head = struct.pack("<4sIIii", b"PMGL", _CHUNK - _LISTING_HEAD - len(body), 0, number - 1,
                               number + 1 if number + 1 < len(chunks) else -1)
            out.append(_finish(head, body, offsets))
        return out, names


def _index_chunk(first_names):
    body, offsets = b"", []
    for number, name in enumerate(first_names):
        text = name.encode("utf-8")
        offsets.append(len(body))
        body += _encode(len(text)) + text + _encode(number)
    if _INDEX_HEAD + len(body) + _quick_length(len(offsets)) > _CHUNK:
        raise Damaged("too many streams for one index chunk")
    return _finish(struct.pack("<4sI", b"PMGI", _CHUNK - _INDEX_HEAD - len(body)), body, offsets)


def _order(name):
    """Names are ordered without regard to case."""
    return name.lower()


def _quick_length(entries):
    return 2 + 2 * ((entries - 1) // _QUICK_EVERY)


def _finish(head, body, offsets):
    """A whole chunk: its head, its entries, free space, and from the end backwards the quick reference."""
    words = [len(offsets)] + offsets[_QUICK_EVERY::_QUICK_EVERY]
    quick = b"".join(struct.pack("<H", word) for word in reversed(words))
    return head + body + bytes(_CHUNK - len(head) - len(body) - len(quick)) + quick
