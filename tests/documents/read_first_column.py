"""Prints the texts of the first column below its title, one after the other, as a spreadsheet reads
them. Fails where a cell holds more than a sheet takes."""
import re
import sys
import xml.etree.ElementTree as xml
import zipfile

MOST_UNITS = 32767
SPACE = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"

with zipfile.ZipFile(sys.argv[1]) as book:
    strings = ["".join(item.itertext())
               for item in xml.fromstring(book.read("xl/sharedStrings.xml"))]
    sheet = xml.fromstring(book.read("xl/worksheets/sheet1.xml"))

for cell in sheet.iter(SPACE + "c"):
    if not re.fullmatch("A[0-9]+", cell.get("r")) or cell.get("r") == "A1":
        continue
    text = strings[int(cell.find(SPACE + "v").text)]
    if len(text.encode("utf-16-le")) > 2 * MOST_UNITS:
        sys.exit("too long: " + cell.get("r"))
    shown = re.sub("_x([0-9A-Fa-f]{4})_", lambda code: chr(int(code[1], 16)), text)
    sys.stdout.buffer.write(shown.encode("utf-8"))
