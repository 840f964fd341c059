# The pictures of docs/pictures are what the unchanged application draws, without the system's library and with it. The
# environment gives PLAIN (the application), LIBRARY (the shared library), COMPARE (the program that tells pictures apart)
# and ORV_SOURCE_DIR (the root of the tree).
set -uo pipefail
: "${PLAIN:?}" "${LIBRARY:?}" "${COMPARE:?}" "${ORV_SOURCE_DIR:?}"
export ASAN_OPTIONS=verify_asan_link_order=0:detect_leaks=0
pictures=$ORV_SOURCE_DIR/docs/pictures
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

fail() {
  echo "FAILED: $*"
  failures=$((failures + 1))
}

unset DISPLAY WAYLAND_DISPLAY
"$PLAIN" "$scratch/plain-before.png" || fail 'it draws nothing'
LD_PRELOAD=$LIBRARY "$PLAIN" "$scratch/plain-after.png" || fail 'it draws nothing with the library'
for picture in plain-before plain-after; do
  if ! "$COMPARE" "$pictures/$picture.png" "$scratch/$picture.png"; then
    cp "$scratch/$picture.png" "$pictures/$picture.png.new"
    fail "differs from docs/pictures/$picture.png (./dev accept takes the new one)"
  fi
done
"$COMPARE" "$scratch/plain-before.png" "$scratch/plain-after.png" >/dev/null && fail 'the library makes no difference'

[ "$failures" -eq 0 ] && echo ok
exit "$((failures > 0))"
