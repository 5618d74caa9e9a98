#!/bin/bash
# package_test.sh BUILD VERSION: makes the Debian package of a build, installs, upgrades and removes
# it in a throw-away root, looks whether all is there, and starts the program from there, by its
# desktop entry, in a network of its own where UDP 162 is open to it.
set -u
build=$1 version=$2
for tool in cpack dpkg dpkg-deb dpkg-shlibdeps unshare; do
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
root=$work/root
[ "$(dpkg-deb -f "$package" Version)" = "$version" ] || fail "the version is not $version"
dpkg-deb -f "$package" Depends | grep -q libcap2-bin || fail "setcap is not asked for"

# Other checkers of the field, as far as they are here.
checked() { # COMMAND...
  ! command -v "$1" >/dev/null || "$@" >"$work/log" 2>&1 || { cat "$work/log"; fail "$1 objects"; }
}
checked lintian --fail-on error --allow-root "$package"

# Installed by dpkg itself into a root where nothing else is.
export PATH=$PATH:/usr/sbin:/sbin
mkdir -p "$root"/{etc,var/cache/debconf,var/lib/dpkg/{info,updates,triggers}}
touch "$root/var/lib/dpkg/status"
cp /etc/debconf.conf "$root/etc"
export DEBIAN_FRONTEND=noninteractive
run_dpkg() {
  dpkg --root="$root" --log=/dev/null --force-depends --force-unsafe-io \
    --force-script-chrootless "$@" >"$work/log" 2>&1 || { cat "$work/log"; fail "dpkg $*"; }
}
run_dpkg --install "$package"
# No group can be made in another root: rights_test.sh has the groups.
grep -q "only root can receive traps" "$work/log" || fail "nobody is told that only root may listen"

for file in lib/sentrel/{Sentrel,sentrel-mib,sentrel-port,sentrel-mibs.image,Help/default.htm,tips/Benchwells.txt} \
            bin/{Sentrel,sentrel,sentrel-mib} share/man/man1/{Sentrel,sentrel,sentrel-mib}.1.gz \
            share/icons/hicolor/{16x16,48x48,256x256}/apps/sentrel.png \
            share/icons/hicolor/scalable/apps/sentrel.svg share/doc/sentrel/copyright \
            share/applications/sentrel.desktop share/metainfo/sentrel.metainfo.xml; do
  [ -s "$root/usr/$file" ] || fail "$file is missing"
done
share=$root/usr/share
checked desktop-file-validate "$share/applications/sentrel.desktop"
checked appstreamcli validate --no-net "$share/metainfo/sentrel.metainfo.xml"
zcat "$share/doc/sentrel/changelog.gz" | head -n 1 | grep -qF "($version)" ||
  fail "the package's change log does not begin with $version"
grep -m 1 '<release ' "$share/metainfo/sentrel.metainfo.xml" | grep -qF "\"$version\"" ||
  fail "the newest release of the metainfo is not $version"
for page in "$share"/man/man1/*.gz; do
  zcat "$page" | grep -q "^.TH .*\"Sentrel ${version%.*.*}\"" || fail "$page is of another version"
done

# Who may do what.
state=$root/var/lib/sentrel
[ -z "$(find "$root/usr" "$state" -perm /6022 ! -type l)" ] ||
  fail "others may write, or a file changes its user"
capable=$(getcap -r "$root")
[ -z "$capable" ] || fail "a capability of $capable"
[ "$(stat -c %a "$state")" = 755 ] || fail "the machine's options can be written by others"

# An upgrade and a removal leave alone what an administrator has done; purging takes the options.
dpkg-deb -R "$package" "$work/next"
sed -i "s/^Version: .*/&.1/" "$work/next/DEBIAN/control"
dpkg-deb -Znone -b "$work/next" "$work/next.deb" >/dev/null
chmod 775 "$state"
touch "$state/registry.db"
mkdir "$root/usr/lib/sentrel/mibs"
touch "$root/usr/lib/sentrel/mibs/MAKER-MIB"
run_dpkg --install "$work/next.deb"
[ "$(stat -c %a "$state")" = 775 ] || fail "an upgrade takes an administrator's choice back"
run_dpkg --remove sentrel
[ -e "$state/registry.db" ] || fail "removal takes the options away"
[ -e "$root/usr/lib/sentrel/mibs/MAKER-MIB" ] || fail "removal takes an administrator's file away"
run_dpkg --purge sentrel
[ ! -e "$state" ] || fail "purging leaves the options behind"
rm -r "$root/usr/lib/sentrel/mibs"
run_dpkg --install "$package"

# The program, started as the desktop does, and by the name that people type.
ip link set lo up
export QT_QPA_PLATFORM=offscreen HOME=$work/home SNMP_PERSISTENT_DIR=$work/home PATH=$root/usr/bin:$PATH
mkdir "$HOME"
"$root/usr/bin/sentrel-mib" lookup 1.3.6.1.6.3.1.1.5.3 | grep -q linkDown || fail "no names"
command=$(sed -n 's/^Exec=//p' "$root/usr/share/applications/sentrel.desktop")
layout=$root/usr/lib/sentrel/Sentrel.Toolbars
for name in "$command" sentrel; do
  [ "$(command -v "$name")" = "$root/usr/bin/$name" ] || fail "$name starts nothing"
  rm -f "$layout"
  $name & sentrel=$!
  await 20 grep -q ':00A2 ' /proc/net/udp /proc/net/udp6 || fail "$name does not listen"
  snmpinform -v2c -c public -r 0 -t 5 127.0.0.1 '' 1.3.6.1.6.3.1.1.5.1 || fail "no answer of $name"
  kill -TERM $sentrel
  wait $sentrel || fail "SIGTERM is no clean end of $name"
  sentrel=
  [ -e "$layout" ] || fail "root's toolbar layout is not kept by $name"
done
run_dpkg --purge sentrel
grep -qs sentrel "$root"/var/cache/debconf/config.dat && fail "purging leaves an answer behind"
rm -r "$root"/etc "$root"/var/{cache,lib/dpkg}
left=$(cd "$root" && find . -not -path . -not -path ./var -not -path ./var/lib)
[ -z "$left" ] || fail "removal leaves behind: $left"
echo PASSED
