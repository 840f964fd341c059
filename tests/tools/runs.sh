# orv runs: offsets, directions, visual order and text, as a table and as JSON.
. "$(dirname "$0")/lib.sh"

run runs 'abc سلام'
expect_golden runs-latin-first.txt

run runs 'نسخه ۱۲ (Debian 12.5) است.'
expect_golden runs-persian.txt

run runs --paragraph rtl 'abc سلام'
expect_golden runs-paragraph.txt
run runs --paragraph RightToLeft 'abc سلام'
expect_golden runs-paragraph.txt

printf 'سلام!\r\n\tשלום\\\xe2\x80\x8f\n' >page.txt
run runs -f page.txt
expect_golden runs-unseen.txt
"$ORV" runs -f - <page.txt >"$out" 2>"$err"
status=$? doing='orv runs -f -'
expect_golden runs-unseen.txt

# A byte order mark is no part of the text.
printf '\xef\xbb\xbfسلام!\r\n\tשלום\\\xe2\x80\x8f\n' >page.txt
run runs --file page.txt
expect_golden runs-unseen.txt

run runs --json 'قیمت (12) است 😀'
expect_golden runs.json

run runs --option DigitsBeforeLatinAreLatin --option rtllineindexorder '1. سلام 5 km'
expect_golden runs-options.txt
cp "$out" with-options
run runs '1. سلام 5 km'
expect_done
cmp -s "$out" with-options && fail "the options change nothing"

# The plain rules leave the mark at a line's end to the separator.
run runs --plain $'سلام !\n'
expect_golden runs-plain.txt
run runs $'سلام !\n'
expect_golden runs-corrected.txt

run runs ''
expect_golden runs-empty.txt

run runs --help
expect_done
expect_output 'DigitsBeforeLatinAreLatin'

finish
