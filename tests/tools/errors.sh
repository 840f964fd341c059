# What a person can get wrong: one clear line, the right status, and nothing written.
. "$(dirname "$0")/lib.sh"

printf 'سلام\n' >good.txt
printf 'abc\xff\n' >bad.txt
mkdir folder

# The command line.
run
expect_error 2 'subcommand'
run frobnicate
expect_error 2 'frobnicate'
run runs
expect_error 2 'TEXT'
run runs abc -f good.txt
expect_error 2 'not both'
run runs abc def
expect_error 2 'def'
run runs --frobnicate abc
expect_error 2 '--frobnicate'
run runs --paragraph sideways abc
expect_error 2 "--paragraph: .*'sideways'.*RightToLeft"
run runs --option Bogus abc
expect_error 2 "--option: .*'Bogus'.*RTLDate"
run runs $'abc\xff'
expect_error 2 'TEXT: .*UTF-8'
run shape
expect_error 2 'TEXT'
run shape --digits roman abc
expect_error 2 "--digits: .*'roman'.*persian"
run show
expect_error 2 'FILE'
run show good.txt --width wide
expect_error 2 '--width'
run show good.txt --width 10
expect_error 2 '--width'
run show good.txt --size 0
expect_error 2 '--size'
run show good.txt --size nan
expect_error 2 '--size'
run show good.txt --digits roman
expect_error 2 "--digits: .*'roman'"
run show good.txt --align middle
expect_error 2 "align.*leading, center, trailing"
run show good.txt --trim letter
expect_error 2 "trim.*none, character, word"
run show good.txt --scale 0
expect_error 2 'scale'
for look in 5 5-3=#000000 0-1 0-1=red '0-1=#12345' '0-1=#000000,fat' '0-1=-,size=1' '0-1=' -1-2=-; do
  run show good.txt "--attr=$look"
  expect_error 2 'attr'
done
run show good.txt --option Bogus
expect_error 2 "--option: .*'Bogus'"
run show good.txt --window -o page.png
expect_error 2 '--window'
run eval extra
expect_error 2 'extra'

# A message stays one line, whatever an argument holds.
run runs --option $'two\nlines' abc
expect_error 2 'two lines'

# Files.
for command in 'runs -f' 'shape -f' 'show'; do
  # shellcheck disable=SC2086
  run $command missing.txt
  expect_error 1 'missing\.txt: No such file'
  # shellcheck disable=SC2086
  run $command bad.txt
  expect_error 1 'bad\.txt: it is not UTF-8 \(byte 4\)'
  # shellcheck disable=SC2086
  run $command folder
  expect_error 1 'folder: '
done

# A font that is not there, a picture that cannot be written.
run show good.txt -o page.png --font 'No Such Family'
expect_error 1 "No Such Family"
run show good.txt -o missing/page.png
expect_error 1 'missing/page\.png'
run show good.txt -o folder
expect_error 1 'folder: it is not a regular file'
run show good.txt -o folder/
expect_error 1 'folder/'
run show good.txt -o /dev/full
expect_error 1 '/dev/full: it is not a regular file'
[ -c /dev/full ] || fail '/dev/full was replaced'
run show good.txt -o ''
expect_error 1 'names no file'

# A page that is too high for a picture.
yes 'سلام' | head -2000 >long.txt
run show long.txt -o page.png
expect_error 1 'pixels high'
rm long.txt

# One bad text, no picture at all.
run show good.txt bad.txt
expect_error 1 'bad\.txt'
expect_files good.txt bad.txt folder

# No display.
run show --window good.txt
expect_error 1 'no display'
DISPLAY=:59999 run show --window good.txt
expect_error 1 'no display'
expect_files good.txt bad.txt folder

# Standard output that cannot take it.
doing='orv runs to a full device'
"$ORV" runs abc >/dev/full 2>"$err"
status=$?
: >"$out"
expect_error 1 'standard output'

finish
