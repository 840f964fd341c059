# orv show without a window: where the pictures go, and that they come whole or not at all.
. "$(dirname "$0")/lib.sh"

is_png() { [ "$(head -c 8 "$1" | od -An -tx1 | tr -d ' \n')" = 89504e470d0a1a0a ] || fail "$1 is no PNG file"; }

mkdir a b
printf 'سلام\n' >a/page.txt
printf 'שלום\n' >b/page.txt
cp a/page.txt b/other.txt

# Without a display each file becomes a picture under out/, said line by line.
run show a/page.txt b/page.txt b/other.txt
expect_done
[ "$(cat "$out")" = $'out/page.png\nout/page-2.png\nout/other.png' ] || fail "said: $(cat "$out")"
expect_files a a/page.txt b b/page.txt b/other.txt out out/page.png out/page-2.png out/other.png
for picture in out/*.png; do is_png "$picture"; done
cmp -s out/page.png out/page-2.png && fail "two texts, one picture"
cmp -s out/page.png out/other.png || fail "one text, two pictures"

# A display that is named but cannot be reached is no display.
rm -r out
DISPLAY=:59999 run show a/page.txt
expect_done
[ "$(cat "$out")" = out/page.png ] || fail "said: $(cat "$out")"
rm -r out

# One picture for all texts, on standard input too.
run show a/page.txt b/page.txt -o both.png
expect_done
is_png both.png
doing='orv show -'
"$ORV" show - -o stdin.png <a/page.txt >"$out" 2>"$err"
status=$?
expect_done
is_png stdin.png
run show a/page.txt -o one.png
expect_done
cmp -s one.png stdin.png || fail "standard input is drawn otherwise than the file"
cmp -s one.png both.png && fail "the second text is not drawn"

# Every option has its effect.
printf 'متن ۱۲ و 34 و 5"\n\nسلام abc\n' >options.txt
run show options.txt -o plain.png
expect_done
for options in '--align center' '--no-wrap --width 60' '--attr 0-3=#C00000' '--attr 0-3=-,italic' '--attr 0-3=-,size=30' \
  '--scale 1.5' '--boxes' '--no-wrap --width 60 --trim character' '--width 500' '--size 24' '--digits arabic' '--option ReplaceQuoteWithPrimeInMeasures' \
  '--paragraph ltr' '--font FreeSerif'; do
  # shellcheck disable=SC2086
  run show options.txt -o changed.png $options
  expect_done
  cmp -s plain.png changed.png && fail "no effect"
done
run show options.txt -o changed.png --font 'dejavu sans'
expect_done
cp changed.png dejavu.png
run show options.txt -o changed.png --font 'DejaVu Sans'
expect_done
cmp -s changed.png dejavu.png || fail "letter case matters in a family name"
# The frames, a line for each text, and nothing drawn.
run show options.txt a/page.txt --dump --width 300
expect_done
[ "$(wc -l <"$out")" -eq 2 ] || fail "not a line for each text"
python3 - "$out" <<'PYTHON' || fail "no frames: $(head -c 300 "$out")"
import json, sys
pages = [json.loads(line) for line in open(sys.argv[1], encoding="utf-8")]
assert [len(page["Paragraphs"]) for page in pages] == [3, 1], pages
run = pages[1]["Paragraphs"][0]["Frame"]["Lines"][0]["Runs"][0]
assert run["RightToLeft"] and run["Length"] == 4, run
PYTHON
[ ! -e out ] || fail "pictures are written"
rm ./*.png

# A picture that cannot be finished leaves the former one, and no part of the new one.
printf 'the former picture' >page.png
run show missing.txt -o page.png
[ "$status" -eq 1 ] || fail "status $status"
doing='orv show beyond the largest file'
(
  trap '' XFSZ
  ulimit -f 1
  exec "$ORV" show options.txt a/page.txt b/page.txt -o page.png >"$out" 2>"$err"
)
status=$?
expect_error 1 'cannot write page\.png'
[ "$(cat page.png)" = 'the former picture' ] || fail "the former picture is lost"
expect_files a a/page.txt b b/page.txt b/other.txt options.txt page.png

# A link to a picture stays a link.
mkdir real
printf x >real/page.png
ln -sf real/page.png link.png
run show a/page.txt -o link.png
expect_done
[ -L link.png ] || fail "the link was replaced"
is_png real/page.png

# Any text can be drawn: empty, without letters, of one endless word, and random characters of every kind.
: >empty.txt
printf '\n\n\n' >blank.txt
head -c 20000 /dev/zero | tr '\0' 'x' >word.txt
python3 - <<'PYTHON'
import random
random.seed(7)
pools = [(0x20, 0x7E), (0x00, 0x1F), (0x591, 0x5F4), (0x600, 0x6FF), (0x200B, 0x206F), (0xFB1D, 0xFEFF), (0x300, 0x36F),
         (0x20, 0x10FFFF), (0x20, 0x2F)]
def character():
    while True:
        c = random.randint(*random.choice(pools))
        if not 0xD800 <= c <= 0xDFFF:
            return chr(c)
text = "".join(character() for _ in range(6000))
open("random.txt", "w", encoding="utf-8", newline="").write(text)
PYTHON
for text in empty blank word random; do
  run show $text.txt -o $text.png --width 700 --size 8
  expect_done
  is_png $text.png
done
run show random.txt -o narrow.png --width 40 --size 4
expect_done

finish
