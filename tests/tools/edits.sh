# Edit boxes in a real window under a virtual X server, with keyboards of several layouts: what is typed, selected, copied
# and pasted there, and what they show. GALLERY is the program, COMPARE the one that tells pictures apart.
ORV=${GALLERY:?}
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/xserver.sh"
. "$(dirname "$0")/editing.sh"
export ASAN_OPTIONS=detect_leaks=0
start_server 1200x900x24
start_gallery

# --- Keyboards ---

doing='the Persian keyboard'
clear_box trailing
type_keys ir 39 42 43 46
is '"text":"سلام"' '"caret":4,"selStart":4,"selLength":0'
picture edits-persian trailing

doing='a joiner and digits of that keyboard'
xdotool keydown 50 key 65 keyup 50 key 10 11 # Shift with the blank
is '"text":"سلام'$'\u200c''۱۲"' '"caret":7'

doing='Latin letters behind them'
type_keys us 65 38 56 54
is '"text":"سلام'$'\u200c''۱۲ abc"' '"caret":11'

doing='the Hebrew keyboard'
clear_box trailing-latin
type_keys il 38 46 30 32
is '"text":"שךום"' '"caret":4'
picture edits-hebrew trailing-latin

doing='AltGr types, the left Alt does not'
clear_box leading-latin
setxkbmap de
xdotool keydown 108 key 24 keyup 108 keydown 64 key 25 keyup 64 key 26
is '"text":"@e"' '"caret":2'

doing='Ctrl with a letter is a command on every keyboard'
for layout in ir il de; do
  setxkbmap "$layout"
  command_key 38 # A is there
  is '"text":"@e"' '"selected":"@e"'
  xdotool key End
  is '"selected":""'
done

# --- Selections and the clipboard ---

doing='Shift and arrows'
click trailing
xdotool key End
is '"caret":11' '"selected":""'
xdotool keydown shift key --delay 5 Right Right keyup shift # towards the start, from right to left
is '"selected":"bc"' '"caret":9,"selStart":9,"selLength":2'
picture edits-selected trailing

doing='copying'
command_key 54
copied_is() { [ "$(timeout 5 xclip -o -selection clipboard 2>/dev/null)" = "$1" ]; }
wait_for 30 copied_is bc || fail "the clipboard holds: $(timeout 5 xclip -o -selection clipboard)"

doing='pasting over a selection'
printf 'دنیا' | xclip -i -selection clipboard
wait_for 30 copied_is دنیا || fail 'the clipboard does not take it'
setxkbmap ir
command_key 55 # V is there
is '"text":"سلام'$'\u200c''۱۲ aدنیا"' '"caret":13,"selStart":13,"selLength":0'

doing='cutting and pasting a character beyond 16 bits'
clear_box leading-latin
printf 'a😀b' | xclip -i -selection clipboard
wait_for 30 copied_is 'a😀b' || fail 'the clipboard does not take it'
setxkbmap us
command_key 55
is '"text":"a😀b"' '"caret":4'
command_key 38 keydown 37 key 53 keyup 37
is '"text":"",'
wait_for 30 copied_is 'a😀b' || fail "the clipboard holds: $(timeout 5 xclip -o -selection clipboard)"

# --- The pointer ---

doing='a selection drawn with the mouse'
clear_box trailing
type_keys ir 39 42 43 46 65 40 57 33 # سلام and one more word
is '"caret":8'
xdotool keydown ctrl key Right keyup ctrl # back to the start of the second word
is '"caret":5'
end="$(whole caretX) $(whole caretY)"
xdotool key Home
is '"caret":0'
start="$(whole caretX) $(whole caretY)"
xdotool mousemove --window "$window" $start mousedown 1 mousemove --window "$window" $end mouseup 1
is '"caret":5,"selStart":5,"selLength":-5' '"selected":"سلام "'

doing='a double click'
click center # no click of another pair
read -r x y <<<"$start"
xdotool mousemove --window "$window" $((x - 10)) "$y" click --repeat 2 --delay 30 1
is '"box":"trailing"' '"selected":"سلام"'
picture edits-word trailing

doing='a password goes nowhere'
printf 'before' | xclip -i -selection clipboard
wait_for 30 copied_is before || fail 'the clipboard does not take it'
click password
command_key 38 keydown 37 key 54 keyup 37
is '"selected":"کلید1234"'
copied_is before || fail "the clipboard holds: $(timeout 5 xclip -o -selection clipboard)"

doing='a box to be read alone'
click read-only
before=$(value selStart)
type_keys us 38 22
xdotool key Home
is '"caret":0' 'תיבה לקריאה בלבד (read only)"'

doing='digits alone'
clear_box digits
type_keys us 38 10 56 11
is '"text":"12"'

doing='at most 8 characters'
clear_box length
type_keys us 38 38 38 38 56 56 56 56 54 54
is '"text":"aaaabbbb"'

# --- The menu ---

doing='the menu by the right button'
clear_box leading-latin
type_keys us 38 56 54
is '"text":"abc"'
click leading-latin 3
is '"menu":[{"text":"Cut","enabled":false'
has '"text":"Paste","enabled":true' || fail "not to be pasted: $(state)"
picture edits-menu leading-latin 170
choose 'Select All'
is '"selected":"abc"'

doing='the menu by keys'
xdotool key shift+F10
is '"text":"Cut","enabled":true'
xdotool key Down
is '"highlighted":0'
xdotool key Down key Return
is '"menu":[]'
wait_for 30 copied_is abc || fail "the clipboard holds: $(timeout 5 xclip -o -selection clipboard)"
has '"text":"abc"' || fail "the text is another one: $(state)"

doing='Esc closes the menu, and not the window'
xdotool key shift+F10
is '"text":"Cut"'
xdotool key Escape
is '"menu":[]'

doing='a press beside the menu'
xdotool key shift+F10
is '"text":"Cut"'
xdotool mousemove --window "$window" 1000 820 click 1
is '"menu":[]' '"box":"leading-latin"'

# --- Spelling ---

doing='a misspelt word'
click spelling
xdotool key Home
is '"caret":0' '"text":"a sentense with بادابم"'
read -r x y <<<"$(box spelling)"
place=$(awk '$5 == "spelling" { print $1 }' <<<"$boxes")
picture edits-spelling spelling
xdotool mousemove --window "$window" $((place + 60)) "$y" click 3 # on it
is '"menu":[{"text":"sentence","enabled":true'
choose sentence
is '"text":"a sentence with بادابم"'
xdotool key End
is '"caret":22'
picture edits-corrected spelling

# --- The focus ---

doing='Tab'
click leading
xdotool key Tab
is '"box":"center"' '"focus":true'
xdotool key shift+Tab
is '"box":"leading"'

doing='the focus of the window'
clear_box leading-latin
type_keys us 38 56
is '"text":"ab"' '"caret":2'
xdotool mousemove 1190 890 windowfocus 1 # to what the pointer is over, which is nothing
is '"focus":false'
xdotool key 54
focus_window
is '"text":"ab"' '"caret":2' '"selLength":0' # and nothing is selected anew
xdotool key 54
is '"text":"abc"'

# --- The switches ---

doing='by the rules'
switches=$("$GALLERY" --page edit --switches)
press() {
  local x y
  read -r x y _ <<<"$(grep -m1 -E "^[0-9]+ [0-9]+ $1\$" <<<"$switches")"
  xdotool mousemove --window "$window" "$x" "$y" click 1
}
before=$(python3 "$ORV_SOURCE_DIR/tests/tools/framebuffer.py" "$scratch/screen/Xvfb_screen0")
press 'By the rules'
changes() { [ "$(python3 "$ORV_SOURCE_DIR/tests/tools/framebuffer.py" "$scratch/screen/Xvfb_screen0")" != "$before" ]; }
wait_for 30 changes || fail 'nothing changes'
press Corrected
has '"focus":true' || fail "the switches take the focus: $(state)"

doing='a page without boxes'
press Text
is '"page":"text"' '"focus":false'
press 'Edit boxes'
is '"page":"edit"' '"focus":true'

doing='an idle window sleeps'
spent() { awk '{ print $14 + $15 }' "/proc/$viewer/stat"; }
before=$(spent)
sleep 2
[ $(($(spent) - before)) -lt $(($(getconf CLK_TCK))) ] || fail "$(($(spent) - before)) ticks of $(getconf CLK_TCK) a second"

stop_gallery

# --- Another scale ---

doing='two pixels a unit'
start_gallery --scale 0.5
read -r x y <<<"$(box trailing)"
xdotool mousemove --window "$window" $((x / 2)) $((y / 2)) click 1
is '"box":"trailing"'
stop_gallery
finish
