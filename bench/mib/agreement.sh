#!/bin/bash
# agreement.sh SENTREL-MIB FOLDER [DIFFERENCES]
# Compares sentrel-mib with snmptranslate over every OID that snmptranslate names when it loads all
# modules of FOLDER and of the folders in it. Prints both figures, writes the OIDs that differ to the
# file DIFFERENCES, and fails where fewer than 99.5 % agree.
set -euo pipefail
mib=$(realpath "$1")
folder=$(realpath "$2")
differences=$(realpath -m "${3:-differences.txt}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C XDG_CACHE_HOME=$work/cache
export SNMP_PERSISTENT_DIR=$work/peer SNMPCONFPATH=$work/peer MIBS=

folders=$(find "$folder" -type d | sort | paste -sd:)
peer() { snmptranslate -M "$folders" -m ALL "$@" 2>/dev/null; }

# Every OID and the name that a user of the peer would see.
peer -To | sed 's/^\.//' | sort -u >"$work/oids"
xargs -n 40000 snmptranslate -M "$folders" -m ALL -Os <"$work/oids" 2>/dev/null | grep . >"$work/names"

# The labels of each object, out of the peer's picture of its tree: "+--name(3)" tells the node, a
# line "Values:" below it its labels. BITS are drawn alike and have no named values.
peer -Tp | awk '
  /^ *[ |]*\+--/ {
    match($0, /\+--/); depth = int((RSTART + 2) / 3); line = $0
    isBits = line ~ / BitString /
    sub(/^.*[ -]/, "", line)
    name = line; sub(/\([0-9]+\)$/, "", name)
    number = line; sub(/^.*\(/, "", number); sub(/\)$/, "", number)
    path[depth] = number; oid = path[1]
    for (i = 2; i <= depth; i++) oid = oid "." path[i]
    next
  }
  /Values: / && !isBits { sub(/^.*Values: /, ""); gsub(/ /, ""); print oid "\t" name "\t" $0 }
' >"$work/labels"

"$mib" lookup -M "$folder" <"$work/oids" >"$work/ours"

paste "$work/oids" "$work/names" | awk -F'\t' -v labels="$work/labels" -v ours="$work/ours" '
  # Labels as a set: the peer keeps the order of the text.
  function sorted(list,   parts, n, i, j, text, swap) {
    n = split(list, parts, ",")
    for (i = 2; i <= n; i++)
      for (j = i; j > 1 && parts[j - 1] > parts[j]; j--) {
        swap = parts[j]; parts[j] = parts[j - 1]; parts[j - 1] = swap
      }
    text = ""
    for (i = 1; i <= n; i++) text = text parts[i] ","
    return text
  }
  BEGIN {
    while ((getline < labels) > 0) theirs[$1, $2] = $3
    while ((getline < ours) > 0) { name[$1] = $2; values[$1] = $3 }
  }
  {
    ++all
    list = theirs[$1, $2]
    if (name[$1] != $2) {
      ++otherName; print "name\t" $1 "\t" $2 "\t" name[$1]
    } else if (list != values[$1] && sorted(list) != sorted(values[$1])) {
      ++otherLabels; print "labels\t" $1 "\t" $2 "\t" list "\t" values[$1]
    }
  }
  END {
    agree = all - otherName - otherLabels
    printf "%d OIDs, %d agree (%.3f %%), %d other names, %d other labels\n", all, agree,
      100 * agree / all, otherName, otherLabels > "/dev/stderr"
    exit 100 * agree / all < 99.5
  }' >"$differences"
