# Sourced by the tests of the orv command: a scratch folder, one run of the command, and checks that say what is wrong.
# The environment gives ORV (the command) and ORV_SOURCE_DIR (the root of the tree).
set -uo pipefail
: "${ORV:?}" "${ORV_SOURCE_DIR:?}"
[ -x "$ORV" ] || { echo "no command at $ORV"; exit 1; }
export LC_ALL=C.UTF-8
unset DISPLAY WAYLAND_DISPLAY
# Without this the window library starts a message bus and leaves it behind.
export DBUS_SESSION_BUS_ADDRESS=disabled:
golden=$ORV_SOURCE_DIR/tests/tools/golden
pages=$ORV_SOURCE_DIR/tests/tools/pages
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
out=$scratch/stdout
err=$scratch/stderr
mkdir "$scratch/work"
cd "$scratch/work" || exit 1
failures=0
doing=

fail() {
  echo "FAILED: $doing: $*"
  failures=$((failures + 1))
}

# run ARGUMENTS...: the command with standard output and error in the files $out and $err.
run() {
  doing="orv $*"
  "$ORV" "$@" >"$out" 2>"$err" </dev/null
  status=$?
}

# expect_done: status 0, nothing on standard error.
expect_done() {
  [ "$status" -eq 0 ] || fail "status $status, not 0: $(cat "$err")"
  [ ! -s "$err" ] || fail "standard error: $(cat "$err")"
}

# expect_error STATUS PATTERN: that status, no output, and one line on standard error that matches.
expect_error() {
  [ "$status" -eq "$1" ] || fail "status $status, not $1"
  [ ! -s "$out" ] || fail "standard output: $(head -c 200 "$out")"
  [ "$(wc -l <"$err")" -eq 1 ] || fail "not one line on standard error: $(cat "$err")"
  grep -qE -- "$2" "$err" || fail "standard error does not match '$2': $(cat "$err")"
}

# expect_output PATTERN: a line of standard output matches.
expect_output() { grep -qE -- "$1" "$out" || fail "no line of the output matches '$1': $(head -c 400 "$out")"; }

# expect_golden NAME: standard output equals golden/NAME. Otherwise it is left beside it as NAME.new; ./dev accept
# takes it over.
expect_golden() {
  expect_done
  cmp -s "$out" "$golden/$1" && return
  cp "$out" "$golden/$1.new"
  fail "differs from golden/$1 (./dev accept takes the new one): $(diff "$golden/$1" "$out" | head -20)"
}

# expect_files NAMES...: the folder holds these files and folders, and nothing half-written beside them.
expect_files() {
  local found wanted
  found=$(find . -mindepth 1 -printf '%P\n' | sort)
  wanted=$(printf '%s\n' "$@" | sort)
  [ "$found" = "$wanted" ] || fail "files: $(echo "$found" | tr '\n' ' ')"
}

finish() {
  [ "$failures" -eq 0 ] && echo "ok"
  exit "$((failures > 0))"
}
