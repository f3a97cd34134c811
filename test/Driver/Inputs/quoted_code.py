"""Fails for each C++ quotation of docs/adding-a-check.md that lib/Analyzer does not contain."""

import pathlib
import re
import sys
import textwrap

root = pathlib.Path(sys.argv[1])
guide = (root / "docs/adding-a-check.md").read_text()
sources = [path.read_text() for path in (root / "lib/Analyzer").rglob("*.cpp")]
quotations = re.findall(r"^ *```cpp\n(.*?)^ *```$", guide, re.DOTALL | re.MULTILINE)
stale = [text for text in quotations if not any(textwrap.dedent(text) in s for s in sources)]
for text in stale:
    print("not in lib/Analyzer:", text, sep="\n")
sys.exit(bool(stale) or not quotations)
