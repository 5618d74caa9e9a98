#!/usr/bin/env python3
"""pages_test.py SOURCE: the pages of the manual fit together, and tell of every setting by the name
that it has in its dialog or in the store."""

import sys
import xml.etree.ElementTree as ElementTree
from collections import Counter
from pathlib import Path

NAMESPACE = "{http://www.w3.org/1999/xhtml}"
PNG = b"\x89PNG\r\n\x1a\n"
SETTINGS = """Decode Trap OIDs
Display raw data, do not decode Trap OIDs
Enable Device Filtering (Only receive SNMP Traps from specific devices)
Add New IP Address, Subnet, or Address Range
Enable SNMP Community Filtering
New SNMP Community String
Remove Selected Filter
Log Traps to a file as they arrive
Logging File
Hostname or IP Address
SNMP Community String
Device Filter Active
Logging Enabled
Log Filename
OID Cache Size
ToolTips
HelpDirectory
Device Filters
Community Strings""".splitlines()


class Page:
    def __init__(self, file):
        tree = ElementTree.parse(file).getroot()
        elements = list(tree.iter())
        self.tags = {element.tag.removeprefix(NAMESPACE) for element in elements}
        self.title = tree.findtext(f".//{NAMESPACE}title")
        self.links = [element.get("href") for element in elements if element.get("href")]
        self.pictures = [element.get("src") for element in elements if element.get("src")]
        self.anchors = {element.get("id") for element in elements}
        self.text = " ".join("".join(tree.itertext()).split())


def faults(folder):
    pages = {file.name: Page(file) for file in folder.glob("*.htm*")}
    pictures = {name for page in pages.values() for name in page.pictures}
    titles = Counter(page.title for page in pages.values())
    text = " ".join(page.text for page in pages.values())
    for name, page in pages.items():
        for link in page.links:
            target, _, anchor = link.partition("#")
            if not (folder / target).is_file() or (anchor and anchor not in pages[target].anchors):
                yield f"{name}: {link} leads nowhere"
        if name != "default.htm" and name not in pages["default.htm"].links:
            yield f"{name} is not in the contents"
        if not page.title or titles[page.title] > 1:
            yield f"{name} has no title of its own"
        if "script" in page.tags or "style.css" not in page.links:
            yield f"{name} has a script, or not the style of all"
    for name in pictures:
        if not (folder / name).is_file() or not (folder / name).read_bytes().startswith(PNG):
            yield f"{name} is no picture"
    for file in folder.glob("pictures/*"):
        if f"pictures/{file.name}" not in pictures:
            yield f"{file.name} is on no page"
    for name in SETTINGS:
        if name not in text:
            yield f"no page tells of {name}"


found = list(faults(Path(sys.argv[1]) / "help"))
sys.exit("\n".join(found) or 0)
