# The gallery: its pictures are as they were accepted; in a real window under a virtual X server its switches take effect
# at once, its page reflows with the window, and it ends by Esc. GALLERY is the program, COMPARE the one that tells
# pictures apart.
: "${GALLERY:?}" "${COMPARE:?}"
ORV=$GALLERY
. "$(dirname "$0")/lib.sh"
export ASAN_OPTIONS=detect_leaks=0
pictures=$ORV_SOURCE_DIR/docs/pictures

run -o made
expect_done
for picture in gallery-light gallery-dark edits-light edits-dark; do
  if ! "$COMPARE" "$pictures/$picture.png" "made/$picture.png"; then
    cp "made/$picture.png" "$pictures/$picture.png.new"
    fail "differs from docs/pictures/$picture.png (./dev accept takes the new one)"
  fi
done
for strange in --scale '--scale 0' '--page other' '-o' 'x' '-o made 0'; do
  run $strange
  [ "$status" -eq 2 ] || fail "strange arguments: status $status"
done

run --switches
expect_done
switches=$(cat "$out")

. "$(dirname "$0")/xserver.sh"
start_server 1300x1000x24

# The page alone, without the switches; and all of it.
page() {
  python3 "$ORV_SOURCE_DIR/tests/tools/framebuffer.py" "$scratch/screen/Xvfb_screen0" 310 0 800 800 "$scratch/page.png"
  cksum <"$scratch/page.png"
}
screen() { python3 "$ORV_SOURCE_DIR/tests/tools/framebuffer.py" "$scratch/screen/Xvfb_screen0"; }
page_is() { [ "$(page)" = "$1" ]; }
page_is_not() { ! page_is "$1"; }
screen_is_not() { [ "$(screen)" != "$1" ]; }
has_ink() { [ "$(screen | cut -d' ' -f1)" -gt 2000 ]; }

doing='the window'
"$GALLERY" >"$out" 2>"$err" &
viewer=$!
window=$(xdotool search --sync --name '^Orv$' | head -1)
xdotool windowmove "$window" 0 0 windowfocus --sync "$window"
wait_for 60 has_ink || fail "it is blank: $(cat "$err")"
xdotool mousemove 5 5 # the pointer is seen in pictures
sleep 0.5
start=$(page)

# press CAPTION: the switch of that name.
press() {
  local place
  place=$(grep -m1 -E "^[0-9]+ [0-9]+ $1\$" <<<"$switches") || fail "there is no switch '$1'"
  read -r x y _ <<<"$place"
  xdotool mousemove --window "$window" "$x" "$y" click 1
}
# shows ON [OFF]: the page changes when ON is pressed, and is as before when OFF is, or ON again.
shows() {
  doing=$1
  press "$1"
  wait_for 30 page_is_not "$start" || fail "the page does not change"
  press "${2:-$1}"
  wait_for 30 page_is "$start" || fail "the page is not as before"
}
# is_kept SWITCH: the switch moves, and the page stays as it is.
is_kept() {
  doing=$1
  local before
  before=$(screen)
  press "$1"
  wait_for 30 screen_is_not "$before" || fail "the switch does not move"
  page_is "$start" || fail "the page changes"
  press "$1"
}
shows Dark Light
shows Persian Arabic
shows Latin Arabic
press 'Right to left'  # captions are told apart by their first place
wait_for 30 page_is_not "$start" || fail "equations do not turn round"
press 'Left to right'
wait_for 30 page_is "$start" || fail "equations do not turn back"
shows 'Digits before latin are latin'
shows 'Measure signs in right side of digits'
shows 'Own direction'
shows 'Line ends'
shows 'Tatweel joins'
shows 'Zwj joins'
is_kept 'Weak follow line direction'

doing='the wheel over the switches'
before=$(screen)
xdotool mousemove --window "$window" 150 400 click 5
wait_for 30 screen_is_not "$before" || fail 'they do not scroll'
page_is "$start" || fail 'the page scrolls with them'
xdotool click 4

doing='a narrower window'
xdotool windowsize --sync "$window" 900 800
wait_for 30 page_is_not "$start" || fail "the page does not reflow"
narrow=$(page)
xdotool mousemove --window "$window" 600 400 click 5
wait_for 30 page_is_not "$narrow" || fail "the wheel does not scroll the page"
xdotool mousemove 5 5 key Home
wait_for 30 page_is "$narrow" || fail "not back at the start"

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
finish
