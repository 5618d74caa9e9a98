#!/bin/bash
# compare.sh SENTREL-MIB FOLDER [TURNS]
# Loads all modules of FOLDER and of the folders in it with snmptranslate and with sentrel-mib, turn
# by turn, and prints medians: of the times, of the processor times, and of the ratios within each
# turn, so that what else the machine does weighs on both alike. Times are those of whole processes,
# from their start to their end. Needs `measure`, which is built along with sentrel-mib.
set -euo pipefail
mib=$(realpath "$1")
folder=$(realpath "$2")
turns=${3:-7}
measure=$(dirname "$mib")/../bench/measure
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C XDG_CACHE_HOME=$work/cache
export SNMP_PERSISTENT_DIR=$work/peer SNMPCONFPATH=$work/peer MIBS=
folders=$(find "$folder" -type d | sort | paste -sd:)
oid=1.3.6.1.2.1.1.3.0

"$mib" lookup -M "$folder" $oid >/dev/null
for _ in $(seq "$turns"); do
  "$measure" snmptranslate -M "$folders" -m ALL -Os $oid
  "$measure" "$mib" compile -o "$work/image" "$folder"
  "$measure" "$mib" lookup -M "$folder" $oid
done | paste -d' ' - - - | awk '
  function median(list,   i, j, swap) {
    for (i = 2; i <= NR; i++)
      for (j = i; j > 1 && list[j - 1] > list[j]; j--) {
        swap = list[j]; list[j] = list[j - 1]; list[j - 1] = swap
      }
    return list[int((NR + 1) / 2)]
  }
  function most(a, b) { return a > b ? a : b }
  {
    peer[NR] = $1 / 1000; cold[NR] = $4 / 1000; warm[NR] = $7 / 1000
    coldRatio[NR] = $1 / $4; warmRatio[NR] = $1 / $7
    peerWork[NR] = $2 / 1000; coldWork[NR] = $5 / 1000; workRatio[NR] = $2 / $5
    warmWork[NR] = $8 / 1000; warmWorkRatio[NR] = $2 / $8
    peerMemory = most(peerMemory, $3); memory = most(memory, $6)
  }
  END {
    row = "%-34s %10s %10s %8s %12s\n"
    printf row, "", "peer", "ours", "ratio", "goal"
    printf row, "compile everything, ms", median(peer), median(cold),
      sprintf("%.1f", median(coldRatio)), "8 or more"
    printf row, "the same, ms of the processors", median(peerWork), median(coldWork),
      sprintf("%.1f", median(workRatio)), ""
    printf row, "peak memory, MB", int(peerMemory / 1024), int(memory / 1024),
      sprintf("%.2f", memory / peerMemory), "1.5 or less"
    printf row, "start with the image at hand, ms", median(peer), median(warm),
      sprintf("%.0f", median(warmRatio)), "500 or more"
    printf row, "the same, ms of the processors", median(peerWork), median(warmWork),
      sprintf("%.0f", median(warmWorkRatio)), ""
  }'
