# A virtual X server for tests of windows, behind lib.sh. Its screen is the file $scratch/screen/Xvfb_screen0; the server and
# the program whose process is in $viewer end with the test.
viewer=

# wait_for SECONDS COMMAND...: until the command holds.
wait_for() {
  local end=$((SECONDS + $1))
  shift
  until "$@"; do
    [ "$SECONDS" -lt "$end" ] || return 1
    sleep 0.05
  done
}

# start_server WIDTHxHEIGHTxDEPTH: sets DISPLAY.
start_server() {
  doing='the X server'
  mkdir "$scratch/screen"
  Xvfb -displayfd 3 -noreset -nolisten tcp -screen 0 "$1" -fbdir "$scratch/screen" 3>"$scratch/display" \
    2>"$scratch/xvfb.log" &
  server=$!
  trap 'kill -KILL $viewer 2>/dev/null; kill $server 2>/dev/null; wait; rm -rf "$scratch"' EXIT
  wait_for 60 test -s "$scratch/display" || {
    fail "it does not start: $(cat "$scratch/xvfb.log")"
    finish
  }
  DISPLAY=:$(cat "$scratch/display")
  export DISPLAY
}
