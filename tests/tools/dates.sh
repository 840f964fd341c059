# orv date and orv cal: what they print, and what a person can get wrong.
. "$(dirname "$0")/lib.sh"

# A day in every calendar.
run date --today 2025-03-21
expect_golden date-today.txt
run date 1404/1/1
expect_output '^gregorian   2025/03/21   Friday, 21 March 2025$'
expect_output '^day         2460756$'
run date ۱۴۰۴/۱/۱ --to gregorian
expect_output '^2025/03/21   Friday, 21 March 2025$'
run date 2025-03-21 --to jalali
expect_output '^1404/01/01   جمعه ۱ فروردین ۱۴۰۴$'
run date 1446.9.21 --from islamic --to persian,gregorian --locale fr-CA
expect_output '^jalali +1404/01/01 '
expect_output '^gregorian +2025/03/21   vendredi 21 mars 2025$'
run date 2025/3/21 --to jalali --format 'yyyy-mm-dd mmmm'
expect_output '^1404-01-01 فروردین$'
run date 2025/3/21 --format yyyy/mm/dd
expect_output '^hijri +1446/09/21$'
expect_output '^julian +2025/03/08$'
run date 2325/12/1 --from jalali --to jalali
expect_output '^2325/12/01'
# 2025 was no leap year by the 2820-year rule; 30 Esfand 1403 is the day before.
run date 1403/12/30 --to gregorian --format yyyy-mm-dd
expect_output '^2025-03-20$'

# Pages.
run cal --today 2025-03-30
expect_golden cal-jalali.txt
run cal 9 1446 -c hijri --today 2025-03-12
expect_golden cal-hijri.txt
run cal -c gregorian --today 2025-03-21
expect_golden cal-gregorian.txt
run cal 1404 --today 2025-03-30
expect_golden cal-jalali-year.txt
run cal -y -c gregorian --today 2025-03-30
expect_golden cal-gregorian-year.txt
run cal 5784 -c hebrew
expect_golden cal-hebrew-year.txt
run cal مهر 1404 --today 2025-03-30
expect_output 'مهر ۱۴۰۴'
run cal sept 2025 -c gregorian
expect_output 'September 2025'
run cal ۷ ۱۴۰۴
expect_output 'مهر ۱۴۰۴'
run cal -y 1404
expect_output 'اسفند'

# Mistakes.
run date 1404/1
expect_error 2 "DATE: '1404/1' is no date"
run date 1404/12/30
expect_error 2 "DATE: the jalali calendar has no day '1404/12/30'"
run date 99999999/1/1
expect_error 2 'DATE: .*is no date'
run date $'1404/1/\xff'
expect_error 2 'DATE: it is not UTF-8'
run date 1404/1/1 --from nowhere
expect_error 2 "--from: there is no calendar 'nowhere'; known are jalali"
run date --to jalali,,hijri
expect_error 2 "--to: there is no calendar ''"
run date --to hebrew --format d
expect_error 2 '--format: the hebrew calendar has no formats'
run date --locale zz-ZZ
expect_error 2 "--locale: there is no locale 'zz-ZZ'"
run date --today yesterday
expect_error 2 "--today: 'yesterday' is no date"
run date --format "'a''b'" --to jalali
expect_error 1 'doubled quote'
run cal nowhere
expect_error 2 "MONTH: 'nowhere' is no month of the jalali calendar"
run cal 13 1404
expect_error 2 'MONTH: the jalali year 1404 has no month 13'
run cal 0
expect_error 2 "MONTH: '0' is no month"
run cal 1 5000
expect_error 2 'YEAR: 5000 lies outside the jalali calendar'
run cal 1 soon
expect_error 2 "YEAR: 'soon' is no year"
run cal -y 1 1404
expect_error 2 '--year: give the year alone'
run cal -c moon
expect_error 2 "--calendar: there is no calendar 'moon'"

finish
