# A page drawn with one pinned font looks as it did when golden/page.png was accepted.
# COMPARE is the program that tells two pictures apart.
. "$(dirname "$0")/lib.sh"

draw() { run show "$pages/short.txt" --font 'DejaVu Sans' --size 15 --width 300 "$@"; }

draw -o page.png
expect_done
if ! "$COMPARE" "$golden/page.png" page.png; then
  cp page.png "$golden/page.png.new"
  fail "differs from golden/page.png (./dev accept takes the new one)"
fi

# The comparison is worth something: it sees one letter, and digits of another kind.
sed 's/دنیا/دنبا/' "$pages/short.txt" >letter.txt
run show letter.txt --font 'DejaVu Sans' --size 15 --width 300 -o letter.png
expect_done
"$COMPARE" "$golden/page.png" letter.png >/dev/null && fail "one letter makes no difference"
draw --digits latin -o digits.png
expect_done
"$COMPARE" "$golden/page.png" digits.png >/dev/null && fail "digits make no difference"

finish
