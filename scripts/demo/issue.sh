#!/usr/bin/env bash
# A material issue for a production order, and a copy of it. To be sourced after documents.sh.
[ "${BASH_SOURCE[0]}" != "$0" ] || source "$(dirname "$0")/../setup.sh" --help

# issued_of PART EXCEPT: what documents other than EXCEPT have issued of a part to the order.
issued_of() { call CTranDetail IssuedOrRtnQty "$2" "$production_order" "$1" $issue_type && answer Result; }

# add_issue_line NUMBER PART QUANTITY, behind a look at what the order requires.
add_issue_line() {
  local required issued
  call CTranDetail GetMRPQty "$production_order" "$2" $issue_type
  required=$(answer Result)
  issued=$(issued_of "$2" $issue)
  echo "order $production_order requires $required of part $2; $issued issued by other documents"
  dated "$document_date" CTranDetail Insert $issue $issue_type "$production_order" "$2" \
    TRANNO=$issue REFERENCE="$production_order" SN="i:$1" PARTNO="$2" MONO="$production_order" QTY="n:$3" VQTY=n:0 \
    UPRICE=n:0 ADDBY=ADMIN "i:$1"
}

enter_issue() {
  document_date=2024/01/15 insert_document $issue $issue_type null: 2>"$folder/refused.txt" || true
  error_in_january=$(answer ErrNumber)
  echo "dated 2024/01/15 it is refused: error $error_in_january $(answer ErrDescription)"
  stored_in_january=$(query "SELECT count(*) FROM STKTRANHD WHERE TRANNO='$issue'")
  call CTranDetail OrderTypeExam "$production_order"
  order_type=$(answer Result)
  issued_before=$(issued_of "$part" NONE)
  insert_document $issue $issue_type null:
  add_issue_line 1 "$part" -3
  add_issue_line 2 "$second_part" -1
  dated "$document_date" CTranDetail Update $issue $issue_type "$production_order" "$part" QTY=n:-2 i:1
}

approve_and_reopen_issue() {
  set_status $issue $issue_type APPROVED 1 Approved
  set_status $issue $issue_type UNAPPROVED 0 Open
  reopened=$(query "SELECT STATUSSN FROM STKTRANHD WHERE TRANNO='$issue'")
  set_status $issue $issue_type APPROVED 1 Approved
}

copy_issue() {
  insert_document $copy $issue_type null: $issue
  lines_copied=$(query "SELECT count(*) FROM STKTRANDT O JOIN STKTRANDT C
                          ON (C.SN,C.PARTNO,C.QTY)=(O.SN,O.PARTNO,O.QTY) WHERE O.TRANNO='$issue' AND C.TRANNO='$copy'")
  issued_with_copy=$(issued_of "$part" NONE)
}

delete_copy() {
  dated "$document_date" CTranDetail Delete $copy $issue_type "$production_order" "$second_part" i:2
  lines_left=$(query "SELECT group_concat(SN) FROM STKTRANDT WHERE TRANNO='$copy'")
  dated "$document_date" CTranHead Delete $copy $issue_type
}

show_issue() {
  local part second_part
  { read -r part && read -r second_part; } < \
    <(query "SELECT DISTINCT PARTNO FROM CODETAIL WHERE CONO='$production_order' ORDER BY PARTNO LIMIT 2")
  enter_issue
  approve_and_reopen_issue
  copy_issue
  show_documents $issue $copy
  delete_copy
  check "a document of January is refused after its close, and nothing of it is stored" \
    "$error_in_january $stored_in_january" "10000112 0"
  check "the order is known as a production order" "$order_type" MO
  check "the document was un-approved before it was approved again" "$reopened" 0
  check "the copy has the lines of its original" "$lines_copied" 2
  check "original and copy count as issued" "$issued_with_copy" "$(query "SELECT $issued_before + 4")"
  check "of the copy's two lines the one that was not deleted is left" "$lines_left" 1
}
