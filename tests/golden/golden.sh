# The golden pictures are drawn as they were accepted, and each is told in README.md. The environment gives SCENES (the
# program that draws them), COMPARE (the one that tells pictures apart) and ORV_SOURCE_DIR (the root of the tree).
set -uo pipefail
: "${SCENES:?}" "${COMPARE:?}" "${ORV_SOURCE_DIR:?}"
golden=$ORV_SOURCE_DIR/tests/golden
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

fail() {
  echo "FAILED: $*"
  failures=$((failures + 1))
}

"$SCENES" "$scratch" >"$scratch/names" || fail 'they are not drawn'
[ "$(wc -l <"$scratch/names")" -ge 40 ] || fail 'not all are drawn'
while read -r name; do
  if ! "$COMPARE" "$golden/$name.png" "$scratch/$name.png"; then
    cp "$scratch/$name.png" "$golden/$name.png.new"
    fail "$name differs (./dev accept takes the new one)"
  fi
  grep -q "^| \`$name\` |" "$golden/README.md" || fail "$name is not told in README.md"
done <"$scratch/names"
for picture in "$golden"/*.png; do
  grep -qx "$(basename "$picture" .png)" "$scratch/names" || fail "nothing draws $picture"
done
[ "$(grep -c '^| `' "$golden/README.md")" -eq "$(wc -l <"$scratch/names")" ] || fail 'README.md tells of others'

# A second run gives the same bytes, and the comparison sees a word in another place.
mkdir "$scratch/again"
"$SCENES" "$scratch/again" >/dev/null
while read -r name; do
  cmp -s "$scratch/$name.png" "$scratch/again/$name.png" || fail "$name is another picture in a second run"
done <"$scratch/names"
"$COMPARE" "$scratch/trim-word-from-right.png" "$scratch/trim-character-from-right.png" >/dev/null &&
  fail 'the comparison sees no difference'

[ "$failures" -eq 0 ] && echo ok
exit "$((failures > 0))"
