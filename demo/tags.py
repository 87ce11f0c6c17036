"""Tag blocks for the files we make: ID3v1 at the end of a file, ID3v2 in front of it."""


def id3v1(title, artist, album, year, comment, genre, padding=b"\0"):
    """The 128 bytes at the end of a file; texts in Windows-1252, cut or padded to their fixed widths."""
    fields = ((title, 30), (artist, 30), (album, 30), (year, 4), (comment, 30))
    texts = b"".join(text.encode("cp1252")[:width].ljust(width, padding) for text, width in fields)
    return b"TAG" + texts + bytes([genre])


def id3v2(frames, size, encoding="utf-8"):
    """A tag of exactly `size` bytes: text frames by their id, the rest zeros; ID3v2.4 in UTF-8 or ID3v2.3 in UTF-16.

    UTF-16 begins each text with FF FE, which a hasty reader takes for a frame of sound."""
    version, mark = {"utf-8": (4, 3), "utf-16": (3, 1)}[encoding]
    body = b""
    for name, text in frames.items():
        data = bytes([mark]) + text.encode(encoding)
        assert len(data) < 128  # From there on ID3v2.4 writes sizes in groups of seven bits.
        body += name.encode() + len(data).to_bytes(4, "big") + b"\0\0" + data
    rest = size - 10
    syncsafe = bytes((rest >> shift) & 0x7F for shift in (21, 14, 7, 0))
    assert len(body) <= rest
    return b"ID3" + bytes([version, 0, 0]) + syncsafe + body.ljust(rest, b"\0")
