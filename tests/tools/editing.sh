# For tests of the gallery's edit boxes in a real window, behind lib.sh and xserver.sh: starts it, presses keys and the
# pointer, and asks what its log tells. GALLERY is the program, COMPARE the one that tells pictures apart.
: "${GALLERY:?}" "${COMPARE:?}"
log=$scratch/log
# A slow machine may take its time between two clicks.
export SDL_MOUSE_DOUBLE_CLICK_TIME=3000

# start_gallery OPTIONS...: with the focus in its window, which is in $window.
start_gallery() {
  doing='the window'
  boxes=$("$GALLERY" --page edit --boxes)
  "$GALLERY" --page edit --log "$@" >"$log" 2>"$err" &
  viewer=$!
  wait_for 60 has '"page":"edit"' || {
    fail "it does not start: $(cat "$err")"
    finish
  }
  [ "$(head -1 "$log")" = 'window on x11' ] || fail "not a window of the X server: $(head -1 "$log")"
  window=$(xdotool search --sync --name '^Orv$' | head -1)
  xdotool windowmove "$window" 0 0
  focus_window
}
focus_window() {
  xdotool windowfocus --sync "$window"
  wait_for 20 has '"focus":true' || fail "the box has no focus"
}

# The last line of the log: what the box with the focus is doing.
state() { tail -1 "$log"; }
has() { state | grep -qF -- "$1"; }
has_not() { ! has "$1"; }
# value NAME: a number of the state.
value() { state | sed -E "s/.*\"$1\":(-?[0-9.]+).*/\1/"; }
whole() { value "$1" | cut -d. -f1; }

# is PARTS...: the state comes to hold all of them.
is() {
  local part
  for part in "$@"; do
    wait_for 20 has "$part" || {
      fail "not $part: $(state)"
      return
    }
  done
}

# box NAME: X and Y of its middle.
box() { awk -v name="$1" '$5 == name { print int($1 + $3 / 2), int($2 + $4 / 2) }' <<<"$boxes"; }
click() {
  local x y
  read -r x y <<<"$(box "$1")"
  xdotool mousemove --window "$window" "$x" "$y" click "${2:-1}"
  is "\"box\":\"$1\"" '"focus":true'
}
# clear_box NAME: puts the focus there and empties it.
clear_box() {
  click "$1"
  command_key 38 key 22 # A, Backspace
  is '"text":"",' '"caret":0'
}
# command_key KEYCODE MORE...: with Ctrl, whatever the layout; and what else xdotool is to do.
command_key() {
  local key=$1
  shift
  xdotool keydown 37 key "$key" keyup 37 "$@"
}
# type_keys LAYOUT KEYCODES...: as that keyboard types them.
type_keys() {
  setxkbmap "$1"
  shift
  xdotool key --delay 5 "$@"
}
# item TEXT: X and Y of an item of the open menu.
item() { state | grep -oP "\"text\":\"\Q$1\E\",\"enabled\":true,\"x\":\K[0-9]+,\"y\":[0-9]+" | sed 's/,"y":/ /'; }
choose() {
  local x y
  wait_for 20 has "\"text\":\"$1\",\"enabled\":true" || fail "the menu has no '$1': $(state)"
  read -r x y <<<"$(item "$1")"
  xdotool mousemove --window "$window" "$x" "$y" click 1
  is '"menu":[]'
}

# The picture of a box, with what stands around it, is as it was accepted. The caret blinks, so it is seen in time.
looks_like() {
  python3 "$ORV_SOURCE_DIR/tests/tools/framebuffer.py" "$scratch/screen/Xvfb_screen0" $2 "$scratch/part.png" &&
    "$COMPARE" "$golden/$1.png" "$scratch/part.png" >"$scratch/difference" 2>&1
}
# picture NAME BOX [BELOW]: golden/NAME.png, with that many rows below the box. The pointer is taken out of it.
picture() {
  local place
  xdotool mousemove 1190 890
  place=$(awk -v name="$2" -v below="${3:-0}" '$5 == name { print $1 - 6, $2 - 6, $3 + 12, $4 + 12 + below }' <<<"$boxes")
  wait_for 10 looks_like "$1" "$place" && return
  cp "$scratch/part.png" "$golden/$1.png.new"
  fail "differs from golden/$1.png (./dev accept takes the new one): $(cat "$scratch/difference")"
}

# stop_gallery: Esc ends it, and it has complained of nothing.
stop_gallery() {
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
}
