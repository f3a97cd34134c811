"""Writes fixed.cbl: a program with mistakes, lines that end with CR LF, and a line that is full."""

lines = [
    "       identification division.",
    "       program-id. p.",
    "       data division.",
    "       working-storage section.",
    "       01  a pic x                                                         ABC00100",
    "       01  b pic x.",
    "       procedure division.",
    '           dispaly "a".',
    "           sot a.",
    '           displa "' + "x" * 51 + '".',
    "           goback.",
    "       end program p.",
]
with open("fixed.cbl", "w", newline="", encoding="utf-8") as file:
    file.writelines(line + "\r\n" for line in lines)
