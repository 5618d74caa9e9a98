#!/bin/bash
# full_disk_test.sh TEST_PROGRAM: runs the tests that need a small disk of their own, which they
# may fill up and take away.
set -u
tests=$1
if [ "${IN_OWN_MOUNTS:-}" != yes ]; then
  unshare --map-root-user --mount true 2>/dev/null || { echo "No mounts of its own here."; exit 77; }
  IN_OWN_MOUNTS=yes exec unshare --map-root-user --mount "$0" "$tests"
fi

disk=$(mktemp -d)
trap 'umount "$disk" 2>/dev/null; rm -rf "$disk"' EXIT
mount -t tmpfs -o size=512k none "$disk" || exit 77
SMALL_DISK=$disk "$tests" --gtest_also_run_disabled_tests --gtest_filter='DISABLED_SmallDisk.*'
