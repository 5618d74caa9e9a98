"""Prints the cells of a CSV file below its titles, each followed by a bar."""
import csv
import sys

csv.field_size_limit(1 << 20)
with open(sys.argv[1], encoding="utf-8", newline="") as file:
    for row in list(csv.reader(file))[1:]:
        for cell in row:
            sys.stdout.buffer.write((cell + "|").encode("utf-8"))
