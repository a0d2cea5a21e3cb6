"""The copyright file of a package: the program's own licence, and those of the fonts and icons that
lie in its resource bundle."""

import os
import re

FORMAT = "https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/"

# Name of the licence's file, name of the licence, the files it is for, what they are.
STAGED = (
    ("Geist.txt", "OFL-1.1", "build/assets/Fonts/*", "The Geist fonts"),
    ("Octicons.txt", "Expat-Octicons", "build/assets/*.svg", "Icons of Octicons"),
)


def copyright_file(licence, staged, web_site):
    """The text, from the path of the program's licence and the folder with those of what it has
    from other projects. What was not staged is not in the bundle either."""
    paragraphs = [f"Format: {FORMAT}\nUpstream-Name: Tarnwick\nSource: {web_site}"]
    paragraphs.append(paragraph("*", licence, "Expat", None))
    for name, short, files, comment in STAGED:
        path = os.path.join(staged, name)
        if os.path.exists(path):
            paragraphs.append(paragraph(files, path, short, comment))
    return "\n\n".join(paragraphs) + "\n"


def paragraph(files, path, short, comment):
    with open(path, encoding="utf-8") as file:
        text = file.read().strip()
    holders = re.findall(r"^Copyright (?:\(c\)|©) (.+)$", text, re.MULTILINE | re.IGNORECASE)
    if not holders:
        raise ValueError(f"{path} names no holder of a copyright.")
    lines = [f"Files: {files}", "Copyright: " + "\n           ".join(holders), f"License: {short}"]
    lines += [f" {line.rstrip()}" if line.strip() else " ." for line in text.splitlines()]
    if comment:
        lines.append(f"Comment: {comment}, within Tarnwick_Tarnwick.bundle.")
    return "\n".join(lines)
