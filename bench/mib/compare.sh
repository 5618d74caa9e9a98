#!/bin/bash
# compare.sh SENTREL-MIB FOLDER [TURNS]
# Loads all modules of FOLDER and of the folders in it with snmptranslate and with sentrel-mib, turn
# by turn, and prints the ratios of the best turns. A ratio of 1 or more against its goal is good.
set -euo pipefail
mib=$(realpath "$1")
folder=$(realpath "$2")
turns=${3:-7}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C XDG_CACHE_HOME=$work/cache
export SNMP_PERSISTENT_DIR=$work/peer SNMPCONFPATH=$work/peer MIBS=
folders=$(find "$folder" -type d | sort | paste -sd:)
oid=1.3.6.1.2.1.1.3.0

# measure FILE COMMAND...: appends seconds and kilobytes to the file.
measure() {
  local file=$1 start end
  shift
  start=$(date +%s%N)
  /usr/bin/time -f %M -o "$work/memory" "$@" >"$work/output" 2>&1 || true
  end=$(date +%s%N)
  echo "$(((end - start) / 1000)) $(tail -n 1 "$work/memory")" >>"$file"
}

"$mib" lookup -M "$folder" $oid >"$work/output"
for _ in $(seq "$turns"); do
  measure "$work/theirs" snmptranslate -M "$folders" -m ALL -Os $oid
  measure "$work/cold" "$mib" compile -o "$work/image" "$folder"
  measure "$work/warm" "$mib" lookup -M "$folder" $oid
done

best() { sort -n "$1" | head -n 1 | cut -d' ' -f1; }
memory() { cut -d' ' -f2 "$1" | sort -n | tail -n 1; }
awk -v theirs="$(best "$work/theirs")" -v cold="$(best "$work/cold")" -v warm="$(best "$work/warm")" \
  -v theirMemory="$(memory "$work/theirs")" -v ourMemory="$(memory "$work/cold")" 'BEGIN {
  row = "%-34s %10s %10s %8s %12s\n"
  printf row, "", "peer", "ours", "ratio", "goal"
  printf row, "compile everything, ms", theirs / 1000, cold / 1000,
    sprintf("%.1f", theirs / cold), "8 or more"
  printf row, "peak memory, MB", int(theirMemory / 1024), int(ourMemory / 1024),
    sprintf("%.2f", ourMemory / theirMemory), "1.5 or less"
  printf row, "start with the image at hand, ms", theirs / 1000, warm / 1000,
    sprintf("%.0f", theirs / warm), "500 or more"
}'
