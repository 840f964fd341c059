# The test card looks as it did when it was accepted, at three scales, and a window shows exactly the picture that is
# drawn without one. The environment gives CARD (the program that draws it), COMPARE (the one that tells pictures apart)
# and ORV_SOURCE_DIR (the root of the tree).
set -uo pipefail
: "${CARD:?}" "${COMPARE:?}" "${ORV_SOURCE_DIR:?}"
unset WAYLAND_DISPLAY
# Without this the window library starts a message bus and leaves it behind.
export DBUS_SESSION_BUS_ADDRESS=disabled:
# The X client libraries keep memory until the end, and are unloaded before leaks are looked for.
export ASAN_OPTIONS=detect_leaks=0
golden=$ORV_SOURCE_DIR/tests/platform/golden
scratch=$(mktemp -d)
viewer=
server=
trap 'kill -KILL $viewer 2>/dev/null; kill $server 2>/dev/null; wait; rm -rf "$scratch"' EXIT
failures=0
doing=

fail() {
  echo "FAILED: $doing: $*"
  failures=$((failures + 1))
}

# wait_for SECONDS COMMAND...: until the command holds.
wait_for() {
  local end=$((SECONDS + $1))
  shift
  until "$@"; do
    [ "$SECONDS" -lt "$end" ] || return 1
    sleep 0.05
  done
}

for scale in 1 1.5 2; do
  doing="scale $scale"
  "$CARD" "$scale" "$scratch/card-$scale.png" || fail "it is not drawn"
  if ! "$COMPARE" "$golden/card-$scale.png" "$scratch/card-$scale.png"; then
    cp "$scratch/card-$scale.png" "$golden/card-$scale.png.new"
    fail "differs from golden/card-$scale.png (./dev accept takes the new one)"
  fi
  "$CARD" "$scale" "$scratch/again.png"
  cmp -s "$scratch/card-$scale.png" "$scratch/again.png" || fail "a second run gives another picture"
done

# The comparison is worth something: it sees each of these.
for change in no-clips no-colours no-dashes; do
  doing=$change
  "$CARD" 1 "$scratch/other.png" "$change" || fail "it is not drawn"
  "$COMPARE" "$golden/card-1.png" "$scratch/other.png" >/dev/null && fail "it makes no difference"
done

doing='the X server'
mkdir "$scratch/screen"
Xvfb -displayfd 3 -noreset -nolisten tcp -screen 0 1100x900x24 -fbdir "$scratch/screen" 3>"$scratch/display" \
  2>"$scratch/xvfb.log" &
server=$!
wait_for 60 test -s "$scratch/display" || {
  fail "it does not start: $(cat "$scratch/xvfb.log")"
  exit 1
}
DISPLAY=:$(cat "$scratch/display")
export DISPLAY

# shot WIDTH HEIGHT: the part of the screen where the window lies.
shot() {
  local X=0 Y=0
  eval "$(xdotool getwindowgeometry --shell "$window" | grep -E '^[XY]=-?[0-9]+$')"
  python3 "$ORV_SOURCE_DIR/tests/tools/framebuffer.py" "$scratch/screen/Xvfb_screen0" "$X" "$Y" "$1" "$2" \
    "$scratch/screen.png"
}
shows() { shot "$2" "$3" && "$COMPARE" --exact "$scratch/card-$1.png" "$scratch/screen.png" >"$scratch/told"; }

# in_window SCALE WIDTH HEIGHT: opens the card, compares, closes it by Esc.
in_window() {
  doing="scale $1 in a window"
  : >"$scratch/out"
  "$CARD" "$1" - window >"$scratch/out" 2>&1 &
  viewer=$!
  wait_for 60 test -s "$scratch/out" || fail "it says nothing"
  [ "$(cat "$scratch/out")" = 'shown on x11' ] || fail "not a window of the X server: $(cat "$scratch/out")"
  window=$(xdotool search --sync --name 'test card' | head -1)
  wait_for 30 shows "$@" || fail "the screen shows another picture: $(cat "$scratch/told")"
  xdotool windowfocus --sync "$window" key Escape
  ended() { ! kill -0 "$viewer" 2>/dev/null; }
  wait_for 30 ended || {
    fail "the window stays"
    kill -KILL "$viewer"
  }
  wait "$viewer" || fail "it ends with status $?"
  viewer=
}
in_window 1 480 360
in_window 1.5 720 540
in_window 2 960 720
doing='another scale'
"$COMPARE" --exact "$scratch/card-1.png" "$scratch/screen.png" >/dev/null && fail "it is taken for the same"

[ "$failures" -eq 0 ] && echo ok
exit "$((failures > 0))"
