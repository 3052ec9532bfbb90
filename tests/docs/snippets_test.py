"""Every C++ snippet of a document that names its file must stand in that file, line by line."""

import pathlib
import re
import sys
import textwrap

SNIPPET = re.compile(r"^From `(?P<path>[^`]+)`:\n\n```cpp\n(?P<code>.*?)```$", re.M | re.S)


def normalise(text):
    return textwrap.dedent(text).strip("\n")


def is_in(code, source):
    """The snippet may be indented less than the source."""
    count = len(code.splitlines())
    lines = source.splitlines()
    return any(
        normalise("\n".join(lines[start:start + count])) == code
        for start in range(len(lines) - count + 1)
    )


def main(root, documents):
    checked = 0
    faults = []
    for document in documents:
        text = (root / document).read_text()
        for match in SNIPPET.finditer(text):
            checked += 1
            source = root / match["path"]
            if not source.exists():
                faults.append(f"{document}: {match['path']} does not exist")
            elif not is_in(normalise(match["code"]), source.read_text()):
                faults.append(f"{document}: not in {match['path']}:\n{match['code']}")
    print("\n".join(faults) or f"{checked} snippets stand in their files")
    return 1 if faults or checked == 0 else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]), sys.argv[2:]))
