# A composition through a real input method: IBus with the Telex keyboard of m17n, which composes Vietnamese, in an edit
# box under a virtual X server. GALLERY is the program, COMPARE the one that tells pictures apart.
for needed in ibus-daemon dbus-run-session; do
  command -v "$needed" >/dev/null || {
    echo "skipped: $needed is not installed"
    exit 77
  }
done
[ -n "${IME_SESSION:-}" ] || exec env IME_SESSION=1 dbus-run-session -- bash "$0"
session=$DBUS_SESSION_BUS_ADDRESS
ORV=${GALLERY:?}
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/xserver.sh"
. "$(dirname "$0")/editing.sh"
export ASAN_OPTIONS=detect_leaks=0
export DBUS_SESSION_BUS_ADDRESS=$session HOME=$scratch/home
unset XDG_CONFIG_HOME XDG_CACHE_HOME XDG_RUNTIME_DIR
mkdir "$HOME"
start_server 1200x900x24

doing='the input method'
ibus-daemon --panel disable --config disable --emoji-extension disable >"$scratch/ibus.log" 2>&1 &
daemon=$!
trap 'kill -KILL $viewer 2>/dev/null; kill $daemon $server 2>/dev/null; wait; rm -rf "$scratch"' EXIT
engine=m17n:vi:telex
engine_is_set() { ibus engine $engine >/dev/null 2>&1; [ "$(ibus engine 2>/dev/null)" = $engine ]; }
wait_for 60 engine_is_set || {
  fail "no engine $engine: $(cat "$scratch/ibus.log")"
  finish
}
start_gallery
clear_box leading-latin
wait_for 60 engine_is_set || fail "the engine does not stay: $(ibus engine)"

# The first keys may come before the method has taken the window.
doing='a composition'
composes() {
  has '"composing":"d"' && return
  xdotool key 22 22
  wait_for 5 has '"text":"",' || return 1
  xdotool key 40
  wait_for 5 has '"composing":"d"'
}
wait_for 60 composes || fail "nothing is composed: $(state)"
for step in 40:đ 38:đa 38:đâ 57:đân; do
  xdotool key "${step%:*}"
  is "\"text\":\"${step#*:}\"" "\"composing\":\"${step#*:}\""
done
is '"caret":3'
picture edits-composing leading-latin

doing='the blank that commits comes behind'
xdotool key 65
is '"text":"đân "' '"composing":""' '"caret":4'

doing='an arrow that commits moves from there'
xdotool key --delay 20 40 40 38 38 57
is '"text":"đân đân"' '"composing":"đân"' '"caret":7'
xdotool key 113
is '"text":"đân đân"' '"composing":""' '"caret":6'

doing='Backspace within'
xdotool key --delay 20 40 40
is '"text":"đân đâđn"' '"composing":"đ"' '"caret":7'
xdotool key 22
is '"text":"đân đân"' '"composing":""' '"caret":6'

doing='a composition over a selection'
command_key 38
is '"selected":"đân đân"'
xdotool key --delay 20 40 40
is '"text":"đ"' '"composing":"đ"' '"caret":1'

doing='a press elsewhere keeps what is composed'
xdotool mousemove --window "$window" $(box center) click 1
is '"box":"center"' '"composing":""'
click leading-latin
is '"text":"đ"' '"composing":""'

stop_gallery
finish
