#!/bin/bash
# check_layer.sh COMPILER SRC LAYER "USES" "OUTSIDE HEADERS" INCLUDE:PATH
# Fails unless LAYER can include itself and the folders in USES, and cannot include any other
# folder of SRC nor one of the outside headers. Both lists are separated by semicolons.
set -u
compiler=$1 src=$2 layer=$3 uses=";$4;" outside=$5 path=$6
failures=0

flags=()
IFS=: read -ra roots <<<"$path"
for root in "${roots[@]}"; do flags+=(-I "$root"); done

include() { # HEADER: compiles a file that only includes it, errors to standard output
  echo "#include \"$1\"" | "$compiler" -std=c++20 "${flags[@]}" -fsyntax-only -x c++ - 2>&1
}
complain() { echo "$layer: $1"; failures=$((failures + 1)); }

for folder in "$src"/*/; do
  folder=$(basename "$folder")
  header=$(cd "$src" && ls "$folder"/*.h 2>/dev/null | head -n 1)
  [ -n "$header" ] || continue
  output=$(include "$header")
  if [ "$folder" = "$layer" ] || [[ $uses == *";$folder;"* ]]; then
    [ -z "$output" ] || complain "cannot include $header: $output"
  else
    [[ $output == *"$header: No such file or directory"* ]] || complain "may include $header"
  fi
done

IFS=';' read -ra headers <<<"$outside"
for header in "${headers[@]}"; do
  output=$(include "$header")
  [[ $output == *"belong"*"alone"* || $output == *"$header: No such file or directory"* ]] ||
    complain "may include $header"
done
exit $((failures > 0))
