# orv show in a real window under a virtual X server: it paints, scrolls, zooms, follows its size, and ends by Esc.
. "$(dirname "$0")/lib.sh"

# The X client libraries keep memory until the end, and are unloaded before leaks are looked for.
export ASAN_OPTIONS=detect_leaks=0
. "$(dirname "$0")/xserver.sh"
start_server 1100x900x24

screen() { python3 "$ORV_SOURCE_DIR/tests/tools/framebuffer.py" "$scratch/screen/Xvfb_screen0"; }
dark() { screen | cut -d' ' -f1; }
digest() { screen | cut -d' ' -f2; }
has_ink() { [ "$(dark)" -gt 2000 ]; }
is() { [ "$(digest)" = "$1" ]; }
is_not() { ! is "$1"; }

doing='orv show'
"$ORV" show --window -v "$ORV_SOURCE_DIR"/examples/texts/*.txt >"$out" 2>"$err" &
viewer=$!
wait_for 60 test -s "$out" || fail "it says nothing: $(cat "$err")"
[ "$(cat "$out")" = 'window on x11' ] || fail "not a window of the X server: $(cat "$out")"
wait_for 60 has_ink || fail "the window is blank"
window=$(xdotool search --name 'fa\.txt.*orv show' | head -1)
[ -n "$window" ] || fail "no window of that title"
xdotool windowfocus --sync "$window" mousemove --window "$window" 300 300
start=$(digest)

# act NAME KEYS...: the picture changes, and there is still text in it.
act() {
  doing=$1
  local before
  before=$(digest)
  shift
  xdotool "$@"
  wait_for 30 is_not "$before" || fail "nothing changes"
  wait_for 30 has_ink || fail "nothing to read"
}
act 'Page Down' key Next
act 'the wheel' click 5
doing='Home'
xdotool key Home
wait_for 30 is "$start" || fail "not back at the start"
act 'Down' key Down
act 'Up' key Up
wait_for 30 is "$start" || fail "not back at the start"
act '+' key plus
doing='0'
xdotool key 0
wait_for 30 is "$start" || fail "not back at the first size"
act 'Ctrl and the wheel' keydown ctrl click 4 keyup ctrl
act 'End' key End
act 'a narrower window' windowsize --sync "$window" 500 600

doing='Esc'
xdotool key Escape
ended() { ! kill -0 "$viewer" 2>/dev/null; }
wait_for 30 ended || {
  fail "the window stays"
  kill -KILL "$viewer"
}
wait "$viewer"
status=$?
viewer=
expect_done
xdotool search --name 'orv show' >/dev/null 2>&1 && fail "the window is still there"
[ -z "$(ls)" ] || fail "files: $(ls)"

finish
