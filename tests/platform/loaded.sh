# The same program, which knows the host framework alone, without the system's library and with it: preloaded, linked,
# loaded while it runs, and linked statically; and one whose host is not what it claims to be. The environment gives
# PROBE, PROBE_LINKED, PROBE_STATIC and WRONG_HOST (the programs), LIBRARY (the shared library of the system) and HOST (that
# of the framework).
set -uo pipefail
: "${PROBE:?}" "${PROBE_LINKED:?}" "${PROBE_STATIC:?}" "${WRONG_HOST:?}" "${LIBRARY:?}" "${HOST:?}"
# The sanitizers' own library need not come first.
export ASAN_OPTIONS=verify_asan_link_order=0:detect_leaks=0
failures=0

# check NAME EXPECTED COMMAND...: the command says that, and nothing on its error stream.
check() {
  local name=$1 expected=$2
  shift 2
  local said
  said=$("$@" 2>&1) || said="$said
status $?"
  [ "$said" = "$expected" ] && return
  printf 'FAILED: %s: expected\n%s\nbut it says\n%s\n' "$name" "$expected" "$said"
  failures=$((failures + 1))
}

plain='canvas TCanvasGpu < TCustomCanvasGpu
layout TGPUTextLayout
fonts before 0
fonts after some
direction left to right'
installed='canvas TCanvasGpu < TCanvasGpu
layout TTextLayoutNGOrv
fonts before 0
fonts after some
direction right to left'

check 'without the library' "$plain" "$PROBE"
check 'preloaded' "$installed" env LD_PRELOAD="$LIBRARY" "$PROBE"
check 'preloaded by two names' "$installed" env LD_PRELOAD="$LIBRARY $(readlink -f "$LIBRARY")" "$PROBE"
check 'linked' "$installed" "$PROBE_LINKED"
check 'linked and preloaded' "$installed" env LD_PRELOAD="$LIBRARY" "$PROBE_LINKED"
check 'loaded while it runs' "$installed" "$PROBE" "$LIBRARY"
check 'linked statically' "$installed" "$PROBE_STATIC"
# A program without the framework's platform has nothing to swap, and hears nothing.
check 'preloaded to a stranger' 'hello' env LD_PRELOAD="$LIBRARY" /bin/echo hello
# The library says why it is not installed, and the application goes on.
check 'loaded by a host of another make' "orv: not installed: RegisterCanvasClasses: the class is no canvas
the host's own" "$WRONG_HOST" "$LIBRARY"

# The program itself knows nothing of the system's library.
if readelf -d "$PROBE" | grep -q 'NEEDED.*liborv\.so'; then
  echo 'FAILED: the program is linked with the library'
  failures=$((failures + 1))
fi
# The framework's state is in one place: the system's library has none of its functions.
if nm -DC --defined-only "$LIBRARY" | grep -E ' T (fmx::TCanvasManager|fmx::TTextLayoutManager|rtl::FormatSettings)'; then
  echo 'FAILED: the library has a framework of its own'
  failures=$((failures + 1))
fi
# And none of the system is in the framework's.
if nm -DC --defined-only "$HOST" | grep -E ' T orv::(TTextLayoutNGOrv|TDirectiveChars|Install)'; then
  echo 'FAILED: the framework holds a part of the system'
  failures=$((failures + 1))
fi

[ "$failures" -eq 0 ] && echo ok
exit "$((failures > 0))"
