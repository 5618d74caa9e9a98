#!/bin/bash
# rights_test.sh BUILD: installs the Debian package of a build on a copy of this machine's root that
# goes away again, answers its question either way, and starts the program as users in and outside
# the group, in a network of its own. Needs root.
set -u
build=$1
[ "$(id -u)" = 0 ] || { echo "Only root can let users in and out."; exit 77; }
for tool in addgroup cpack debconf-set-selections dpkg dpkg-reconfigure setcap setpriv snmpinform; do
  command -v $tool >/dev/null || { echo "There is no $tool here."; exit 77; }
done
if [ "${IN_OWN_SYSTEM:-}" != yes ]; then
  unshare --mount --net true 2>/dev/null || { echo "No system of its own here."; exit 77; }
  IN_OWN_SYSTEM=yes exec unshare --mount --net "$0" "$@"
fi

work=$(mktemp -d)
sentrel=
trap '[ -z "$sentrel" ] || kill $sentrel; wait; umount -Rl "$work"; rmdir "$work"' EXIT
fail() { echo "FAILED: $1"; exit 1; }
await() { # SECONDS COMMAND...
  local end=$((SECONDS + $1)); shift
  until "$@"; do [ $SECONDS -lt $end ] || return 1; sleep 0.05; done
}

mount -t tmpfs -o mode=755 none "$work"
mkdir "$work"/{upper,work,root}
mount -t overlay -o "lowerdir=/,upperdir=$work/upper,workdir=$work/work" none "$work/root" ||
  { echo "No copy of the root here."; exit 77; }
root=$work/root
mount -t proc none "$root/proc"
mount -t tmpfs -o mode=1777 none "$root/tmp"
mount --rbind /dev "$root/dev"
ip link set lo up
(cd "$build" && cpack -G DEB -B "$root/tmp/package" >"$work/log" 2>&1) || fail "no package"

environment=(env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive
             QT_QPA_PLATFORM=offscreen)
in_root() { chroot "$root" "${environment[@]}" "$@"; } # COMMAND...
run() { in_root "$@" >"$work/log" 2>&1 || { cat "$work/log"; fail "$*"; }; }
install_package() { run sh -c 'dpkg --force-depends --install /tmp/package/*.deb'; }
answer() { run sh -c "echo sentrel sentrel/members-may-listen boolean $1 | debconf-set-selections"; }
helper=/usr/lib/sentrel/sentrel-port
rights_are() { # WHEN EXPECTED
  local rights
  rights=$(in_root sh -c "stat -c '%U:%G %a' $helper; getcap $helper | cut -d ' ' -f 2-" | xargs)
  [ "$rights" = "$2" ] || fail "$1, the helper has the rights '$rights'"
}
as() { # USER COMMAND...: becomes the command. setpriv has root's powers until it starts another.
  local user=$1; shift
  exec chroot "$root" "${environment[@]}" setpriv --reuid "$user" --regid "$user" --init-groups \
    env HOME="/tmp/$user" "$@"
}
members_only="root:sentrel 750 cap_net_bind_service=ep"
root_only="root:root 755"

in_root dpkg --purge --force-all sentrel >/dev/null 2>&1
for user in ann bob; do run useradd --create-home --home "/tmp/sentrel-$user" "sentrel-$user"; done
install_package
rights_are "without an answer" "$members_only"
run adduser sentrel-ann sentrel
(as sentrel-bob $helper 2>/dev/null)
[ $? -eq 126 ] || fail "a user outside the group may start the helper"
as sentrel-ann Sentrel 2>/dev/null & sentrel=$!
await 20 grep -q ':00A2 ' /proc/net/udp /proc/net/udp6 || fail "a member cannot listen"
snmpinform -v2c -c public -r 0 -t 5 127.0.0.1 '' 1.3.6.1.6.3.1.1.5.1 || fail "no answer"
kill $sentrel
wait $sentrel || fail "SIGTERM is no clean end"
sentrel=

for choice in "false $root_only" "true $members_only"; do
  answer "${choice%% *}"
  run dpkg-reconfigure sentrel
  rights_are "reconfigured with ${choice%% *}" "${choice#* }"
done
run dpkg --purge sentrel
in_root getent group sentrel && fail "purging leaves the group behind"
in_root debconf-show sentrel | grep . && fail "purging leaves an answer behind"

answer false
install_package
rights_are "with a preset no" "$root_only"
run dpkg --purge sentrel
run groupadd --gid 4242 sentrel
install_package
rights_are "with a user's own group of that name" "$root_only"
run dpkg --purge sentrel
in_root getent group sentrel >/dev/null || fail "purging takes a user's group away"
echo PASSED
