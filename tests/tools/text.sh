# orv text: the plain text of HTML and RTF, told by content, and the ranges as a table and as JSON.
. "$(dirname "$0")/lib.sh"

documents=$ORV_SOURCE_DIR/tests/data/rtf
printf '<P>سلام <B>دنیا</B></P>\n<A HREF="http://a.example/">پیوند</A><BR/>' >page.html

run text page.html
expect_golden text-html.txt
run text --ranges page.html
expect_golden text-html-ranges.txt
run text --ranges --json page.html
expect_golden text-html-ranges.json
"$ORV" text - <page.html >"$out" 2>"$err"
status=$? doing='orv text -'
expect_golden text-html.txt

# The name says nothing: the content does.
cp "$documents/simple-fa.rtf" page.html
run text page.html
expect_golden text-rtf.txt
run text --ranges page.html
expect_golden text-rtf-ranges.txt
run text --ranges --json page.html
expect_golden text-rtf-ranges.json

# A byte order mark is no text; a document without text prints nothing.
printf '\xef\xbb\xbf<P>a</P>' >page.html
run text page.html
expect_done
[ "$(cat "$out")" = a ] || fail "not a: $(cat "$out")"
printf '{\\rtf1}' >page.html
run text page.html
expect_done
[ ! -s "$out" ] || fail "output: $(cat "$out")"

# Ranges that repeat the tags around them without end are refused; the text is not.
{ yes '<B>x' | head -n 5000; yes '</B>' | head -n 5000; } | tr -d '\n' >page.html
run text page.html
expect_done
[ "$(wc -c <"$out")" -eq 5001 ] || fail "not 5000 letters and a line end"
run text --ranges page.html
expect_error 1 'orv text: the tags are too many to list them with every range'

# What is refused, and what cannot be read.
run text
expect_error 2 'FILE'
run text page.html --json
expect_error 2 '--ranges'
run text missing.html
expect_error 1 'missing\.html: No such file'
printf '<P>a' >page.html
run text page.html
expect_error 1 "orv text: '/' expected but 'unexpected end' found"
printf '{\\rtf1 a' >page.html
run text page.html
expect_error 1 'orv text: RTF Format is not supported\.'
printf 'abc\xff' >page.html
run text page.html
expect_error 1 'page\.html: it is not UTF-8 \(byte 4\)'

finish
