# orv eval: the JSON-lines port behind its command.
. "$(dirname "$0")/lib.sh"

run eval --list
expect_done
expect_output '^split '

doing='orv eval on three lines'
printf '%s\n' '{"id": 1, "op": "isRTLText", "text": "abc", "default": true}' 'no JSON' \
  '{"id": 3, "op": "isRTLText", "text": "12", "default": true}' | "$ORV" eval >"$out" 2>"$err"
status=$?
expect_done
[ "$(wc -l <"$out")" -eq 3 ] || fail "not an answer for each line: $(cat "$out")"
expect_output '^\{"id":1,"ok":true,"result":false\}$'
expect_output '"ok":false'
expect_output '^\{"id":3,"ok":true,"result":true\}$'

finish
