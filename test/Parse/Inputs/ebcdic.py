"""Writes a program in EBCDIC: ebcdic.py CODEPAGE LINE-END FILE [BYTES]

LINE-END is nel, lf, crlf or records (of 80 bytes, without ends of lines). A character outside of
Latin-1 is written as DBCS, between shift codes. What follows | begins in column 73. BYTES, in
hexadecimal, replace the word BADBYTE.
"""
import sys

PROGRAM = """\
000100 identification division.
000200 program-id. ebcdic.
000300 data division.
000400 working-storage section.
000500*    A comment: [brackets] and a pound sign \u00a3.
000600 1 a pic x(9) value 'a\u00e4b'.
000700 1 g pic g(4) display-1 value G'\u65e5\u672c\u8a9e'.
000800 1 m pic x(9) value 'x\u65e5\u672cy'.|ignored
000900 1 short pic x(3) value '\u65e5'. *> expect: 3292 *> expect-pass
001000 procedure division.
001100     display 'BADBYTE' '\u65e5' nowhere. *> expect: 3310
001200     display '\u65e5\u672c\u8a9e\u65e5\u672c\u8a9e\u65e5\u672c\u8a9e\u65e5\u672c\u8a9e\u65e5\u672c\u8a9e\u65e5\u672c\u8a9e'|ignored
001300     goback.
"""

page, ending, path = sys.argv[1:4]
bad = bytes.fromhex(sys.argv[4]) if len(sys.argv) > 4 else b""
# The code page has these three; their bytes are those of IBM-300.
DOUBLE = {"\u65e5": b"\x45\x62", "\u672c": b"\x45\x66", "\u8a9e": b"\x48\xe7"}


def encode(line):
    result, shifted = b"", False
    for character in line:
        if (character in DOUBLE) != shifted:
            shifted = not shifted
            result += b"\x0e" if shifted else b"\x0f"
        result += DOUBLE.get(character) or character.encode(page)
    return result.replace("BADBYTE".encode(page), bad)


lines = []
for line in PROGRAM.splitlines():
    text, _, rest = line.partition("|")
    lines.append(encode(text).ljust(72, b"\x40") + encode(rest) if rest else encode(text))
if ending == "records":
    data = b"".join(line.ljust(80, b"\x40") for line in lines)
else:
    ends = {"nel": b"\x15", "lf": b"\x25", "crlf": b"\x0d\x25"}
    data = b"".join(line + ends[ending] for line in lines)
with open(path, "wb") as file:
    file.write(data)
