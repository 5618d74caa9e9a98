#!/bin/bash
# dead_name_server_test.sh TEST_SNMP: runs the tests that need a name server of their own, in a
# network where they may open its port.
set -u
tests=$1
if [ "${IN_OWN_NETWORK:-}" != yes ]; then
  unshare --map-root-user --net --mount true 2>/dev/null || { echo "No network of its own here."; exit 77; }
  IN_OWN_NETWORK=yes exec unshare --map-root-user --net --mount "$0" "$tests"
fi

ip link set lo up
configuration=$(mktemp)
trap 'rm -f "$configuration"' EXIT
echo 'nameserver 127.0.0.1' >"$configuration"
mount --bind "$configuration" /etc/resolv.conf || exit 77
"$tests" --gtest_also_run_disabled_tests --gtest_filter='DISABLED_DeadNameServer.*'
