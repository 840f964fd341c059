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
printf '\xef\xbb\xbf{\\rtf1 a\\b b}' >page.html
run text page.html
expect_done
[ "$(cat "$out")" = ab ] || fail "not ab: $(cat "$out")"
run text --ranges page.html
expect_output '^1 +1 +Bold +"b"$'

# The CR behind the LF of a paragraph is no text of a file; in HTML it is a character like any other.
printf '{\\rtf1 a\\par b}' >page.html
run text page.html
expect_done
[ "$(od -An -c "$out" | tr -d ' ')" = 'a\nb\n' ] || fail "not a LF b LF: $(od -c "$out")"
printf '<P>a\n\rb</P>' >page.html
run text page.html
expect_done
[ "$(od -An -c "$out" | tr -d ' ')" = 'a\n\rb\n' ] || fail "not a LF CR b LF: $(od -c "$out")"

# Ranges stay small where their tags do not: nested deep, and with a long attribute around many of them. The innermost
# tags have a place in the table; JSON has them all.
shrinks() { [ "$(wc -c <"$out")" -lt "$1" ] || fail "$(wc -c <"$out") bytes, not below $1"; }
repeat() { printf "$2%.0s" $(seq "$1"); }
{ repeat 20000 '<B>x'; repeat 20000 '</B>'; } >page.html
run text page.html
expect_done
[ "$(wc -c <"$out")" -eq 20001 ] || fail "not 20000 letters and a line end"
run text --ranges page.html
expect_done
shrinks 10000000
expect_output '^0 +1 +Bold +"x"$'
expect_output '^19999 +1 +\.\.\. (Bold ){24} "x"$'
[ "$(wc -l <"$out")" -eq 20001 ] || fail "$(wc -l <"$out") lines"
run text --ranges --json page.html
expect_done
shrinks 10000000
expect_output '^      "Parent": 19998$'
[ "$(grep -c '"Tag":' "$out")" -eq 20000 ] || fail "$(grep -c '"Tag":' "$out") ranges"
{ printf '<A x="'; repeat 100000 y; printf '">'; repeat 5000 'a<B/>'; printf '</A>'; } >page.html
run text --ranges page.html
expect_done
shrinks 2000000
expect_output '^4999 +1 +Anchor\(x=y+\.\.\. +"a"$'
run text --ranges --json page.html
expect_done
shrinks 2000000
printf '<A xy="%s">a</A>' "$(repeat 100 س)" >page.html
run text --ranges page.html
expect_output '^0 +1 +Anchor\(xy=س+\.\.\.  "a"$'
# A text with no tag around it.
printf 'a' >page.html
run text --ranges --json page.html
expect_output '^      "Tag": null$'

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
