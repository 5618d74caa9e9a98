# Shell functions that the take-* scripts share. Read with "." from the project's folder.

# use_own_machine SCRIPT ARGUMENT...: starts the script anew with a network and a home folder of its
# own, where UDP 162 is free and nothing is kept.
use_own_machine() {
  if [ "${IN_OWN_NETWORK:-}" != yes ]; then
    script=$1; shift
    IN_OWN_NETWORK=yes exec unshare --map-root-user --net --mount "tools/$(basename "$script")" "$@"
  fi
  ip link set lo up
  mount -t tmpfs tmpfs /var/lib
  mount -t tmpfs tmpfs /var/log
  HOME=$(mktemp -d)
  export HOME XDG_RUNTIME_DIR=$HOME QT_QPA_PLATFORM=xcb
}

# start_sentrel PRESET SIZE: starts $SENTREL, or the program of that preset, on a virtual display of
# WIDTHxHEIGHT with a window manager. All of it ends with the script.
start_sentrel() {
  Xvfb -displayfd 3 -screen 0 "$2x24" -nolisten tcp 3>"$HOME/display" 2>/dev/null &
  trap 'kill $(jobs -p) 2>/dev/null; wait; rm -rf "$HOME"' EXIT
  until [ -s "$HOME/display" ]; do sleep 0.1; done
  DISPLAY=:$(cat "$HOME/display")
  export DISPLAY
  openbox >/dev/null 2>&1 &
  # A window that opens while the window manager starts may never be seen.
  until xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q '#'; do sleep 0.1; done
  "${SENTREL:-build/$1/bin/Sentrel}" 2>/dev/null &
  until grep -q ':00A2 ' /proc/net/udp6 /proc/net/udp; do sleep 0.1; done
}

# window TITLE: waits for the window, half a minute at most, and writes its number. Assign what it
# writes to a variable first: only then does a missing window end the script.
window() { timeout 30 xdotool search --sync --onlyvisible --name "$1" | tail -n 1; }

# press TITLE KEY...: the keys go to that window.
press() {
  local target key
  target=$(window "$1")
  shift
  until [ "$(xdotool getactivewindow 2>/dev/null)" = "$target" ]; do
    xdotool windowactivate "$target" 2>/dev/null || true  # the window manager may not be up yet
    sleep 0.3
  done
  for key; do sleep 0.5; xdotool key "$key"; done
}

# close_tip: ends the tip of the day, which keeps all keys from the main window.
close_tip() {
  press 'Tip of the Day' Escape
  while xdotool search --onlyvisible --name 'Tip of the Day' >/dev/null 2>&1; do sleep 0.1; done
}

# create_users: lets Sentrel know the user of version 3 of send_traps. To be called before its start.
create_users() {
  mkdir -p "$HOME/.snmp"
  echo 'createUser -e 0x8000000001020304 netops SHA-256 "correct horse" AES "battery staple"' \
    >"$HOME/.snmp/sentrel.conf"
}

# send_traps: traps of every version, from the field's own senders.
send_traps() {
  local target=127.0.0.1
  export MIBS=
  snmptrap -v2c -c public $target '' 1.3.6.1.6.3.1.1.5.1 1.3.6.1.6.3.1.1.4.3.0 o 1.3.6.1.4.1.8072.3.2.10
  snmptrap -v1 -c public $target 1.3.6.1.4.1.9.1.1745 192.0.2.17 2 0 421337 \
    1.3.6.1.2.1.2.2.1.1.7 i 7 1.3.6.1.2.1.2.2.1.2.7 s GigabitEthernet0/7 1.3.6.1.2.1.2.2.1.8.7 i 2
  snmpinform -v2c -c branch-offices 'udp6:[::1]:162' '' 1.3.6.1.2.1.15.0.2 \
    1.3.6.1.2.1.15.3.1.14.192.0.2.65 x 0400 1.3.6.1.2.1.15.3.1.2.192.0.2.65 i 1
  snmptrap -v2c -c public $target '' 1.3.6.1.2.1.47.2.0.1
  snmptrap -v3 -e 0x8000000001020304 -u netops -l authPriv -a SHA-256 -A 'correct horse' -x AES \
    -X 'battery staple' $target '' 1.3.6.1.6.3.1.1.5.3 \
    1.3.6.1.2.1.2.2.1.1.12 i 12 1.3.6.1.2.1.2.2.1.7.12 i 1 1.3.6.1.2.1.2.2.1.8.12 i 2
  snmptrap -v2c -c public $target '' 1.3.6.1.6.3.1.1.5.5 1.3.6.1.6.3.1.1.4.3.0 o 1.3.6.1.4.1.2636.1.1.1.2.29
}

# use_colours light|dark: how the desktop colours its programs, through files in $HOME.
use_colours() {
  [ "$1" = dark ] || return 0
  mkdir -p "$HOME/.config"
  cat >"$HOME/.config/kdeglobals" <<'COLOURS'
[Colors:Window]
BackgroundNormal=42,46,50
ForegroundNormal=252,252,252
[Colors:View]
BackgroundNormal=27,30,32
ForegroundNormal=252,252,252
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
[Colors:Selection]
BackgroundNormal=29,99,155
ForegroundNormal=252,252,252
[Colors:Tooltip]
BackgroundNormal=49,54,59
ForegroundNormal=252,252,252
COLOURS
  export XDG_CURRENT_DESKTOP=KDE KDE_SESSION_VERSION=5
}
