#!/bin/bash
# package_test.sh BUILD VERSION: makes the Debian package of a build, unpacks it into a throw-away
# root, looks whether all is there, and starts the program from there, by its desktop entry, in a
# network of its own where UDP 162 is open to it.
set -u
build=$1 version=$2
for tool in cpack dpkg-deb dpkg-shlibdeps unshare; do
  command -v $tool >/dev/null || { echo "There is no $tool here."; exit 77; }
done
work=$(mktemp -d)
sentrel=
trap '[ -z "$sentrel" ] || kill $sentrel 2>/dev/null; wait; rm -rf "$work"' EXIT
fail() { echo "FAILED: $1"; exit 1; }
await() { # SECONDS COMMAND...
  local end=$((SECONDS + $1)); shift
  until "$@"; do [ $SECONDS -lt $end ] || return 1; sleep 0.05; done
}

if [ "${IN_OWN_NETWORK:-}" != yes ]; then
  unshare --map-root-user --net true 2>/dev/null || { echo "No network of its own here."; exit 77; }
  export PACKAGES=$work/packages
  (cd "$build" && cpack -G DEB -B "$PACKAGES" >"$work/log" 2>&1) || { cat "$work/log"; fail "no package"; }
  IN_OWN_NETWORK=yes unshare --map-root-user --net "$0" "$@"
  exit
fi

package=$(echo "$PACKAGES"/*.deb)
[ "$(dpkg-deb -f "$package" Version)" = "$version" ] || fail "the version is not $version"
dpkg-deb -f "$package" Depends | grep -q libcap2-bin || fail "setcap is not asked for"
dpkg-deb -x "$package" "$work/root" || fail "the package cannot be unpacked"
dpkg-deb -e "$package" "$work/control" || fail "the package has no scripts"
root=$work/root

for file in lib/sentrel/{Sentrel,sentrel-mib,sentrel-port,sentrel-mibs.image,Help/default.htm,tips/Benchwells.txt} \
            bin/{Sentrel,sentrel-mib} share/man/man1/{Sentrel,sentrel-mib}.1.gz \
            share/icons/hicolor/{16x16,48x48,256x256}/apps/sentrel.png \
            share/icons/hicolor/scalable/apps/sentrel.svg share/doc/sentrel/copyright \
            share/applications/sentrel.desktop share/metainfo/sentrel.metainfo.xml; do
  [ -s "$root/usr/$file" ] || fail "$file is missing"
done
[ -z "$(find "$root" -perm /6022 ! -type l)" ] || fail "others may write, or a file changes its user"
[ -z "$(getcap -r "$root" 2>/dev/null)" ] || fail "a file brings a capability with it"

# The scripts of the package, on a root of their own.
scripts() { # SCRIPT ARGUMENT
  sed "s|/var/lib/sentrel|$work/state|g; s|/usr/lib|$root/usr/lib|g; s|^ *setcap|: setcap|" \
    "$work/control/$1" >"$work/script"
  sh "$work/script" "$2" || fail "$1 $2 fails"
}
grep -c cap_ "$work/control/postinst" | grep -qx 1 || fail "not exactly one capability is given"
scripts postinst configure
[ "$(stat -c %a "$work/state")" = 755 ] || fail "the machine's options can be written by others"
chmod 775 "$work/state"
scripts postinst configure
[ "$(stat -c %a "$work/state")" = 775 ] || fail "an upgrade takes an administrator's choice back"
touch "$work/state/registry.db"
scripts postrm remove
[ -e "$work/state/registry.db" ] || fail "removal takes the options away"
scripts postrm purge
[ ! -e "$work/state" ] || fail "purging leaves the options behind"

# The program, started as the desktop does.
ip link set lo up
export QT_QPA_PLATFORM=offscreen HOME=$work/home SNMP_PERSISTENT_DIR=$work/home PATH=$root/usr/bin:$PATH
mkdir "$HOME"
"$root/usr/bin/sentrel-mib" lookup 1.3.6.1.6.3.1.1.5.3 | grep -q linkDown || fail "no names"
command=$(sed -n 's/^Exec=//p' "$root/usr/share/applications/sentrel.desktop")
[ "$(command -v "$command")" = "$root/usr/bin/$command" ] || fail "the desktop entry starts nothing"
$command & sentrel=$!
await 20 grep -q ':00A2 ' /proc/net/udp /proc/net/udp6 || fail "the program does not listen"
snmpinform -v2c -c public -r 0 -t 5 127.0.0.1 '' 1.3.6.1.6.3.1.1.5.1 || fail "no answer"
kill -TERM $sentrel
wait $sentrel || fail "SIGTERM is no clean end"
sentrel=
# Root's toolbar layout lies beside the program.
left() { find "$root" -newer "$work/control" -type f; }
[ "$(left)" = "$root/usr/lib/sentrel/Sentrel.Toolbars" ] || fail "the program leaves behind: $(left)"
scripts postrm remove
[ -z "$(left)" ] || fail "removal leaves behind: $(left)"
echo PASSED
