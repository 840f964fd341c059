# orv shape: the code points before and behind the transforms, with their names.
. "$(dirname "$0")/lib.sh"

run shape 'سلام'
expect_golden shape-lam-alef.txt

run shape 'مُحَمَّد (שַׁ)'
expect_golden shape-marks.txt

run shape --digits persian --primes $'12.5\xd8\xa8 5"'
expect_golden shape-digits.txt

run shape --json 'له😀'
expect_golden shape.json

run shape --plain 'بـب'
expect_golden shape-plain.txt
run shape 'بـب'
expect_golden shape-tatweel.txt

# Whatever shaping makes has a name: every letter and mark of both scripts, alone and between joining letters, with the
# pairs that fold into one form.
python3 - >all.txt <<'PYTHON'
arabic = [chr(c) for c in range(0x0600, 0x0700)]
marks = [chr(c) for c in range(0x064B, 0x0653)] + [chr(0x0670)]
hebrew = [chr(c) for c in range(0x05D0, 0x05EB)]
points = [chr(c) for c in range(0x0591, 0x05C8)]
parts = [x + " \u0628" + x + "\u0628 \u0649" + x for x in arabic]
parts += ["\u0628\u0651" + x + " \u0628" + x + "\u0651" for x in marks]
parts += ["\u0628\u0644" + x + " \u0644" + x for x in "\u0622\u0623\u0625\u0627"]
parts += ["\u0644\u0644\u0651\u0647", "()[]{}\u00AB\u00BB"]
parts += [x + y for x in hebrew for y in points]
parts += ["\u05E9\u05BC\u05C1", "\u05E9\u05BC\u05C2"]
print(" ".join(parts), end="")
PYTHON
run shape --digits arabic -f all.txt
expect_done
[ "$(wc -l <"$out")" -gt 5000 ] || fail "the text of all letters is short: $(wc -l <"$out") lines"
! grep -q 'not in the table of names' "$out" || fail "without a name: $(grep 'not in the table' "$out" | sort -u | head -5)"

finish
