#!/usr/bin/env bash
# Stocktakings of the demo: what they are held against, which parts are counted, and what their postings have to be.
# To be sourced.
[ "${BASH_SOURCE[0]}" != "$0" ] || source "$(dirname "$0")/../setup.sh" --help

counted_check=DEMO-CK
counted_on=2024/02/15
counted_department=30

# What a stocktaking holds the count against: what moved in the department of HEAD since the last close, as the
# documents tell it, without the stocktaking's own posting.
book="
  CLOSED AS (SELECT coalesce(max(C.CLOSEDT), '2004-01-01 00:00:00') AS DAY
             FROM HEAD K LEFT JOIN STKCLOSEHD C ON C.CLOSEDT<=K.CHECKDT),
  MOVED AS (SELECT L.PARTNO, L.QTY, rtrim(H.DEPTNOFR) AS SOURCE, rtrim(H.DEPTNOTO) AS TARGET, H.TRANTYPE
            FROM STKTRANDT L JOIN STKTRANHD H ON H.TRANNO=L.TRANNO, HEAD K, CLOSED
            WHERE H.TRANDT>CLOSED.DAY AND H.TRANDT<=K.CHECKDT
              AND NOT (H.TRANTYPE='STKCHECKISS' AND H.REFERENCE=K.CHECKNO)),
  OUTGOING AS (SELECT M.PARTNO, sum(M.QTY) AS QTY FROM MOVED M, HEAD K
               WHERE M.SOURCE=rtrim(K.DEPTNO) GROUP BY M.PARTNO),
  INCOMING AS (SELECT M.PARTNO, sum(M.QTY) AS QTY FROM MOVED M, HEAD K
               WHERE M.TARGET=rtrim(K.DEPTNO) AND M.TRANTYPE='STK024MRPL' GROUP BY M.PARTNO),
  BOOK AS (SELECT P.PARTNO, max(0.0, coalesce(O.QTY,0)) + max(0.0, coalesce(I.QTY,0)) AS QTY
           FROM PARTS P LEFT JOIN OUTGOING O ON O.PARTNO=P.PARTNO LEFT JOIN INCOMING I ON I.PARTNO=P.PARTNO)"

# sheet_of CHECK: its lines as SHEET, its posting as POSTED.
sheet_of() {
  echo "
  WITH HEAD AS (SELECT * FROM STKCHECKHD WHERE CHECKNO='$1'), $book,
  SHEET AS (SELECT C.PARTNO, B.QTY AS BOOK, C.QTY AS COUNTED FROM STKCHECKDT C JOIN BOOK B ON B.PARTNO=C.PARTNO
            WHERE C.CHECKNO='$1'),
  POSTED AS (SELECT L.PARTNO, L.QTY FROM STKTRANDT L JOIN STKTRANHD H ON H.TRANNO=L.TRANNO
             WHERE H.TRANTYPE='STKCHECKISS' AND H.REFERENCE='$1')"
}

# show_sheet CHECK ROWS: parts that differ first.
show_sheet() {
  table "$(sheet_of "$1") SELECT S.PARTNO AS part, S.BOOK AS book, S.COUNTED AS counted, A.QTY AS posting
         FROM SHEET S LEFT JOIN POSTED A ON A.PARTNO=S.PARTNO
         ORDER BY coalesce(S.COUNTED=S.BOOK, 2), S.PARTNO LIMIT $2"
}

# A handful of parts, most with another quantity than the books have, as part|quantity|price.
choose_counts() {
  counts=$(query "
    WITH HEAD AS (SELECT '$counted_check' AS CHECKNO, '${counted_on//\//-} 00:00:00' AS CHECKDT,
                         '$counted_department' AS DEPTNO), $book,
    CHOSEN AS (SELECT PARTNO, QTY, row_number() OVER (PARTITION BY QTY>0 ORDER BY PARTNO) AS PLACE
               FROM BOOK WHERE QTY=0 OR QTY>5),
    DIFFERENCES(PLACE, MOVED, DIFFERENCE) AS (VALUES(1,1,0), (2,1,2.5), (3,1,-1), (4,1,0), (5,1,-5), (1,0,7))
    SELECT C.PARTNO, C.QTY+D.DIFFERENCE, (SELECT max(UPRICE) FROM STKTRANDT L WHERE L.PARTNO=C.PARTNO)
    FROM CHOSEN C JOIN DIFFERENCES D ON D.PLACE=C.PLACE AND D.MOVED=(C.QTY>0) ORDER BY C.PARTNO")
}

# Approved, its posting is the differences and nothing else.
check_posting() {
  local differing
  differing=$(query "$(sheet_of "$1") SELECT count(*) FROM SHEET WHERE COUNTED<>BOOK")
  check "stocktaking $1 posted one line for each of its $differing differing parts" \
    "$(query "$(sheet_of "$1") SELECT count(*) FROM SHEET S JOIN POSTED A ON A.PARTNO=S.PARTNO
              AND S.COUNTED<>S.BOOK AND abs(A.QTY-(S.COUNTED-S.BOOK))<1e-6")" "$differing"
  check "and no other lines" "$(query "$(sheet_of "$1") SELECT count(*) FROM POSTED")" "$differing"
  check "in a document with a number" \
    "$(query "SELECT count(*) FROM STKTRANHD WHERE TRANTYPE='STKCHECKISS' AND REFERENCE='$1' AND TRANNO<>''")" 1
}

check_counted_stocktaking() {
  check "the sheet of $counted_check is what was counted" \
    "$(query "SELECT PARTNO,QTY,UPRICE FROM STKCHECKDT WHERE CHECKNO='$counted_check' ORDER BY PARTNO")" "$counts"
  check "some of it differs from the books, some does not" \
    "$(query "$(sheet_of $counted_check) SELECT count(DISTINCT COUNTED=BOOK) FROM SHEET")" 2
  check_posting $counted_check
  check "it is posted by one document, approved and of its date" \
    "$(query "SELECT group_concat(STATUSSN||' '||date(TRANDT)||' '||DEPTNOFR) FROM STKTRANHD
              WHERE TRANTYPE='STKCHECKISS' AND REFERENCE='$counted_check'")" \
    "1 ${counted_on//\//-} $counted_department"
}
