#!/usr/bin/env bash
# Stock documents of the demo: the orders that they belong to, and what they are in the end. To be sourced.
[ "${BASH_SOURCE[0]}" != "$0" ] || source "$(dirname "$0")/../setup.sh" --help

document_date=2024/02/12
document_department=10
document_prefix=DEMO
issue=$document_prefix-1 copy=$document_prefix-2 return=$document_prefix-3
issue_type=STK020MISS return_type=STK011PORTN

# A production order that lists several parts, and a purchase order whose lines 1 to 4 have been received; one of which
# something has gone back already, if there is such an order.
choose_orders() {
  production_order=$(query "SELECT H.CONO FROM COHD H JOIN CODETAIL D ON D.CONO=H.CONO
                            WHERE H.STATUSSN=1 GROUP BY H.CONO HAVING count(DISTINCT D.PARTNO)>1 ORDER BY 1 LIMIT 1")
  purchase_order=$(query "
    SELECT P.PONO FROM POHD P JOIN PODT L ON L.PONO=P.PONO AND L.SN<=4
    WHERE P.STATUSSN=1 AND EXISTS(
      SELECT 1 FROM STKTRANDT R JOIN STKTRANHD H ON H.TRANNO=R.TRANNO
      WHERE R.REFERENCE=P.PONO AND R.SN=L.SN AND R.PARTNO=L.PARTNO
        AND H.TRANTYPE='STK010POREV' AND H.DEPTNOTO=P.SUPPLIERNO AND H.STATUSSN=1)
    GROUP BY P.PONO HAVING count(*)=4
    ORDER BY (SELECT count(*) FROM STKTRANDT T JOIN STKTRANHD H ON H.TRANNO=T.TRANNO
              WHERE T.REFERENCE=P.PONO AND T.SN<=4 AND H.TRANTYPE='STK010PORTN' AND H.STATUSSN=1)=0, 1 LIMIT 1")
  [ -n "$production_order" ] && [ -n "$purchase_order" ] || { echo "The company has no such orders." >&2 && return 1; }
}

# The lines 1 to 4 of the purchase order as both kinds of client print them. What went back is stored below zero.
order_lines() {
  local moved="SELECT sum(T.QTY) FROM STKTRANDT T JOIN STKTRANHD H ON H.TRANNO=T.TRANNO
               WHERE T.REFERENCE=L.PONO AND T.SN=L.SN AND H.STATUSSN=1 AND H.TRANTYPE"
  query "SELECT printf('order %s line %d: %.15g ordered, %.15g received, %.15g returned, %.15g open',
                       PONO, SN, ORDERED, RECEIVED, RETURNED, ORDERED-RECEIVED-RETURNED)
         FROM (SELECT L.PONO, L.SN, L.POQTY+L.DEDUCTQTY AS ORDERED, coalesce(($moved='STK010POREV'),0) AS RECEIVED,
                      coalesce(($moved='STK010PORTN'),0) AS RETURNED
               FROM PODT L WHERE L.PONO='$purchase_order' AND L.SN<=4 ORDER BY L.SN)"
}

# insert_document NUMBER TYPE TARGET [ORIGINAL]
insert_document() {
  dated "$document_date" CTranHead Insert "$1" "$2" TRANNO="$1" TRANTYPE="$2" TRANDT="$document_date" \
    DEPTNOFR="$document_department" DEPTNOTO="$3" STATUS=Open STATUSSN=i:0 ADDBY=ADMIN "${@:4}"
}

# set_status NUMBER TYPE TAG STATUS-NUMBER STATUS
set_status() {
  dated "$document_date" CTranHead Update "$1" "$2" STATUSSN="i:$4" STATUS="$5" STATUSBY=ADMIN "$3"
}

show_documents() {
  table "SELECT H.TRANNO AS document, H.TRANTYPE AS type, date(H.TRANDT) AS dated, H.STATUS AS status,
                L.SN AS line, L.REFERENCE AS reference, L.PARTNO AS part, L.QTY AS quantity
         FROM STKTRANHD H LEFT JOIN STKTRANDT L ON L.TRANNO=H.TRANNO
         WHERE H.TRANNO IN ($(printf "'%s'," "$@")'') ORDER BY 1, 5"
}

# The lines of a document as number:quantity, those of its order's own parts.
lines_of_issue() {
  query "SELECT group_concat(SN||':'||QTY) FROM (SELECT * FROM STKTRANDT WHERE TRANNO='$issue' AND PARTNO IN
           (SELECT PARTNO FROM CODETAIL WHERE CONO='$production_order') ORDER BY SN)"
}
lines_of_return() {
  query "SELECT group_concat(SN||':'||QTY) FROM (SELECT L.* FROM STKTRANDT L JOIN PODT P
           ON (P.SN,P.PARTNO,P.PONO)=(L.SN,L.PARTNO,L.REFERENCE)
         WHERE L.TRANNO='$return' AND P.PONO='$purchase_order' ORDER BY L.SN)"
}

check_documents() {
  check "the issue has two lines, the first of them changed" "$(lines_of_issue)" "1:-2.0,2:-1.0"
  check "the deleted copy leaves neither header nor lines" \
    "$(query "SELECT (SELECT count(*) FROM STKTRANHD WHERE TRANNO='$copy') +
                     (SELECT count(*) FROM STKTRANDT WHERE TRANNO='$copy')")" 0
  check "the return has lines 1, 2, 3 of its order, the second of them changed" \
    "$(lines_of_return)" "1:-1.0,2:-2.0,3:-1.0"
  check "and no other lines" "$(query "SELECT count(*) FROM STKTRANDT WHERE TRANNO='$return'")" 3
  check "issue and return are approved and have their date" \
    "$(query "SELECT group_concat(TRANTYPE||' '||STATUSSN||' '||date(TRANDT)) FROM
              (SELECT * FROM STKTRANHD WHERE TRANNO LIKE '$document_prefix-%' ORDER BY TRANNO)")" \
    "$issue_type 1 ${document_date//\//-},$return_type 1 ${document_date//\//-}"
}
