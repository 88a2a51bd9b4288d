#!/usr/bin/env bash
# The month end: closing, approving, and what the close of February shows. To be sourced after classes.sh.
[ "${BASH_SOURCE[0]}" != "$0" ] || source "$(dirname "$0")/../setup.sh" --help

month_1=2024/01/31 month_2=2024/02/29
# Close documents are dated the day after the close date; this is how the database stores days.
end_1='2024-01-31 00:00:00' end_2='2024-02-29 00:00:00'
documents_1='2024-02-01 00:00:00' documents_2='2024-03-01 00:00:00'

close_month() { verb close "$1" && cat "$folder/answer.txt"; }
approve_month() { verb approve "$1"; }

show_close() {
  say "The close of $month_2 against sums of its own"
  verb verify $month_2
  cat "$folder/answer.txt"

  say "Close documents of $month_2"
  table "SELECT H.TRANNO AS document, H.TRANTYPE AS type, coalesce(D.DEPTNM, 'whole company') AS department,
                H.STATUSSN AS status, count(L.PARTNO) AS lines, round(sum(L.QTY), 2) AS quantity
         FROM STKTRANHD H JOIN STKTRANDT L ON L.TRANNO=H.TRANNO LEFT JOIN DEPARTS D ON D.DEPTNO=H.DEPTNOFR
         WHERE H.TRANDT='$documents_2' AND H.TRANTYPE IN ('STK027CLOSE','STKCLOSEALL')
         GROUP BY H.TRANNO ORDER BY H.TRANTYPE, H.DEPTNOFR"

  say "The ten most valuable lines of the company document"
  table "SELECT L.PARTNO AS part, P.PARTNM AS name, round(L.QTY, 2) AS quantity, round(L.UPRICE, 4) AS cost,
                round(L.QTY*L.UPRICE, 2) AS value
         FROM STKTRANDT L JOIN STKTRANHD H ON H.TRANNO=L.TRANNO JOIN PARTS P ON P.PARTNO=L.PARTNO
         WHERE H.TRANDT='$documents_2' AND H.TRANTYPE='STKCLOSEALL'
         ORDER BY L.QTY*L.UPRICE DESC LIMIT 10"
}
