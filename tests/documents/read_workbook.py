"""Prints what a spreadsheet finds in a workbook: how the sheet is set up, then each row with its
height and its cells. With --first-column it prints only how many texts the first column has
below its title, and these. Fails where a cell holds more than a sheet takes, or anything but text."""
import re
import sys
import xml.etree.ElementTree as xml
import zipfile

MOST_UNITS = 32767
SPACE = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"


def parts(path):
    with zipfile.ZipFile(path) as book:
        return {name: xml.fromstring(book.read(name)) for name in book.namelist()
                if name.endswith(".xml")}


def text_of(cell, strings):
    value = cell.find(SPACE + "v")
    if value is None:
        return ""
    if cell.get("t") != "s" or cell.find(SPACE + "f") is not None:
        sys.exit("not a text: " + cell.get("r"))
    text = strings[int(value.text)]
    if len(text.encode("utf-16-le")) > 2 * MOST_UNITS:
        sys.exit("too long: " + cell.get("r"))
    return re.sub("_x([0-9A-Fa-f]{4})_", lambda code: chr(int(code[1], 16)), text)


def print_setup(book, sheet):
    for name in ("pane", "autoFilter", "pageSetup"):
        print(name, dict(sorted(sheet.find(".//" + SPACE + name).items())))
    print("header", sheet.find(".//" + SPACE + "oddHeader").text)
    print("widths", [round(float(col.get("width"))) for col in sheet.iter(SPACE + "col")])
    print("names", [(name.get("name"), name.text)
                    for name in book["xl/workbook.xml"].iter(SPACE + "definedName")])
    formats = [style.get("numFmtId") for style in book["xl/styles.xml"].find(SPACE + "cellXfs")]
    print("text formats", formats.count("49"), "of", len(formats))


def main():
    book = parts(sys.argv[-1])
    sheet = book["xl/worksheets/sheet1.xml"]
    strings = ["".join(item.itertext()) for item in book["xl/sharedStrings.xml"]]
    rows = [(row.get("ht"), [text_of(cell, strings) for cell in row])
            for row in sheet.iter(SPACE + "row")]
    if sys.argv[1] == "--first-column":
        texts = [cells[0] for _, cells in rows[1:]]
        sys.stdout.buffer.write(f"{len(texts)}:{''.join(texts)}".encode("utf-8"))
        return
    sys.stdout.reconfigure(encoding="utf-8")
    print_setup(book, sheet)
    for height, cells in rows:
        print(height, ascii(cells))


main()
