#!/bin/bash
# executable_test.sh SENTREL: the real executable, started by the name that people type and by its
# own, in a network of its own where UDP 162 is free and open to it.
set -u
sentrel=$1
if [ "${IN_OWN_NETWORK:-}" != yes ]; then
  unshare --map-root-user --net true 2>/dev/null || { echo "No network of its own here."; exit 77; }
  IN_OWN_NETWORK=yes exec unshare --map-root-user --net "$0" "$sentrel"
fi

ip link set lo up
export QT_QPA_PLATFORM=offscreen HOME=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null; rm -rf "$HOME"' EXIT
fail() { echo "FAILED: $1"; exit 1; }
await() { # SECONDS COMMAND...
  local end=$((SECONDS + $1)); shift
  until "$@"; do [ $SECONDS -lt $end ] || return 1; sleep 0.05; done
}
port_bound() { grep -q ':00A2 ' /proc/net/udp /proc/net/udp6; }
gone() { ! kill -0 "$1" 2>/dev/null; }

PATH=$(dirname "$sentrel"):$PATH sentrel & first=$!
await 20 port_bound || fail "the program does not listen"
snmpinform -v2c -c public -r 0 -t 5 127.0.0.1 '' 1.3.6.1.6.3.1.1.5.1 || fail "an inform is not answered"
snmpinform -v2c -c public -r 0 -t 5 'udp6:[::1]:162' '' 1.3.6.1.6.3.1.1.5.1 ||
  fail "an inform over IPv6 is not answered"

"$sentrel" & second=$!
# The handler for the signal is in place once the program catches it (bit 14 of the mask).
catches_term() { (( 0x$(awk '/^SigCgt/ {print $2}' "/proc/$1/status") >> 14 & 1 )); }
await 20 catches_term $second || fail "a second copy does not come up"
kill -TERM $second
await 10 gone $second || fail "a second copy does not end"
wait $second && fail "a second copy claims success"

kill -TERM $first
await 10 gone $first || fail "SIGTERM does not end the program"
wait $first || fail "SIGTERM is no clean end"
echo "PASSED"
