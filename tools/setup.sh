# Shell functions that run and test share. Read with "." from the project's folder.

say() { printf '==> %s\n' "$*"; }

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# install_packages LIST...: installs the Debian packages named in the files, one a line, that are
# not installed yet.
install_packages() {
  local wanted missing=()
  wanted=$(cat "$@" | grep -v '^#')
  for package in $wanted; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  say "Installing: ${missing[*]}"
  as_root apt-get update -q
  as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q --no-install-recommends "${missing[@]}"
}

# build PRESET TARGET...
build() {
  local preset=$1
  shift
  say "Building into build/$preset."
  cmake --preset "$preset" --log-level=WARNING -Wno-dev
  cmake --build --preset "$preset" --target "$@"
}

# let_helper_open_port HELPER: gives the helper of a build tree the right to open port 162, for this
# user alone and at once. Each build of the helper takes the right away. Root needs no helper.
let_helper_open_port() {
  [ "$(id -u)" -ne 0 ] || return 0
  [ "$(cat /proc/sys/net/ipv4/ip_unprivileged_port_start)" -gt 162 ] || return 0
  # Before the right is given, and also where an earlier run has given it to everyone.
  chmod 700 "$1"
  /usr/sbin/getcap "$1" | grep -q cap_net_bind_service && return 0
  say "Giving $1 the right to open UDP port 162, for $(id -un) alone."
  as_root /usr/sbin/setcap cap_net_bind_service=ep "$1" ||
    say "That cannot be done here: Sentrel tells you what to do."
}
