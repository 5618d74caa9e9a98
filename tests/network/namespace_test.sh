#!/bin/sh
# namespace_test.sh TEST SENDER: runs the test on a network of its own, with a wire whose two ends
# are "near" and "far". Skipped where the system allows no such thing.
set -eu
export SENDER=$2 PATH=$PATH:/usr/sbin:/sbin
command -v nft >/dev/null || { echo "nft is not installed"; exit 77; }
unshare -rn true 2>/dev/null || { echo "no network namespaces here"; exit 77; }
exec unshare -rn sh -eu -c '
  ip link set lo up
  ip link add near address 02:00:00:00:00:01 type veth peer name far 2>/dev/null || { echo "no wires here"; exit 77; }
  ip address add 198.51.100.1/24 dev near
  ip link set near up
  ip link set far up
  nft list ruleset >/dev/null 2>&1 || { echo "no firewall here"; exit 77; }
  exec "$0"' "$1"
