# The table of names is what its script makes of the Unicode data.
. "$(dirname "$0")/lib.sh"

doing='make_form_names.py'
python3 "$ORV_SOURCE_DIR/tools/orv/make_form_names.py" /usr/share/unicode/UnicodeData.txt >names.inc || fail "it fails"
cmp names.inc "$ORV_SOURCE_DIR/tools/orv/FormNames.inc" || fail "tools/orv/FormNames.inc is not current"

finish
