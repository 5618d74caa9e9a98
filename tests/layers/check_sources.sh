#!/bin/bash
# check_sources.sh PROJECT: ways around the layers that the compiler cannot see.
cd "$1" || exit 1
found=$(grep -rnE '#include +["<](\.\./|/|qt6/|x86_64)' src tests bench fuzz --include='*.h' \
  --include='*.cpp' 2>/dev/null)
[ -z "$found" ] && exit 0
printf 'Includes that slip through the layers:\n%s\n' "$found"
exit 1
