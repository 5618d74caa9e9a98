#!/bin/bash
# check_layer.sh COMPILER SRC LAYER "USES" "LIBRARIES" "OUTSIDE" INCLUDE:PATH
# Fails unless LAYER can include itself, the folders in USES and the headers of LIBRARIES, and no
# other folder of SRC and no other outside header. USES and LIBRARIES are separated by semicolons;
# each line of OUTSIDE is "LIBRARY HEADER WORDS", with what the compiler says where it refuses.
set -u
compiler=$1 src=$2 layer=$3 uses=";$4;" libraries=";$5;" outside=$6 path=$7
failures=0

flags=()
IFS=: read -ra roots <<<"$path"
for root in "${roots[@]}"; do flags+=(-I "$root"); done

include() { # HEADER: compiles a file that only includes it, errors to standard output
  echo "#include \"$1\"" | "$compiler" -std=c++20 -fPIC "${flags[@]}" -fsyntax-only -x c++ - 2>&1
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

while read -r library header refusal; do
  output=$(include "$header")
  if [[ $libraries == *";$library;"* ]]; then
    [ -z "$output" ] || complain "cannot include $header: $output"
  else
    [[ $output == *"$refusal"* ]] || complain "may include $header: $output"
  fi
done <<<"$outside"
exit $((failures > 0))
