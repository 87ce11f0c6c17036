"""Tag blocks for the files we make: ID3v1 at the end of a file, ID3v2.3 in front of it."""


def id3v1(title, artist, album, year, comment, genre, padding=b"\0"):
    """The 128 bytes at the end of a file; texts in Windows-1252, cut or padded to their fixed widths."""
    fields = ((title, 30), (artist, 30), (album, 30), (year, 4), (comment, 30))
    texts = b"".join(text.encode("cp1252")[:width].ljust(width, padding) for text, width in fields)
    return b"TAG" + texts + bytes([genre])


def id3v2(frames, size):
    """A tag of exactly `size` bytes: text frames by their id in UTF-16, the rest zeros."""
    body = b""
    for name, text in frames.items():
        data = b"\x01" + text.encode("utf-16")
        body += name.encode() + len(data).to_bytes(4, "big") + b"\0\0" + data
    rest = size - 10
    syncsafe = bytes((rest >> shift) & 0x7F for shift in (21, 14, 7, 0))
    assert len(body) <= rest
    return b"ID3\x03\0\0" + syncsafe + body.ljust(rest, b"\0")
