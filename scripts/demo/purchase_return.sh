#!/usr/bin/env bash
# A purchase return that is renumbered. To be sourced after documents.sh.
[ "${BASH_SOURCE[0]}" != "$0" ] || source "$(dirname "$0")/../setup.sh" --help

order_part() { query "SELECT PARTNO FROM PODT WHERE PONO='$purchase_order' AND SN=$1"; }

# quantities_of REFERENCE LINE [TYPE]: ordered, received and returned, as they come back in the arguments.
quantities_of() {
  call CTranDetail PORefQty "$1" "i:$2" empty: empty: empty: "${@:3}" &&
    echo "$(returned 3) $(returned 4) $(returned 5)"
}

# insert_return_line NUMBER PART; the part has to be one that was received from the supplier.
insert_return_line() {
  local check_supplier=i:1
  dated "$document_date" CTranDetail InsertRTN $return "i:$1" TRANNO=$return REFERENCE="$purchase_order" SN="i:$1" \
    PARTNO="$2" QTY=n:-1 VQTY=n:-1 UPRICE=n:0 ADDBY=ADMIN $check_supplier
}

show_order_line() {
  local quantities ordered received returned
  quantities=$(quantities_of "$purchase_order" "$1" PO)
  read -r ordered received returned <<<"$quantities"
  # What went back is stored below zero, and is open again.
  echo "order $purchase_order line $1: $ordered ordered, $received received, $returned returned," \
    "$(query "SELECT printf('%.15g', $ordered-$received-($returned))") open"
}

# Its lines 1 to 3 are the lines 2 to 4 of the order.
enter_return() {
  local line
  insert_document $return $return_type "$(query "SELECT SUPPLIERNO FROM POHD WHERE PONO='$purchase_order'")"
  for line in 1 2 3; do insert_return_line $line "$(order_part $((line + 1)))"; done
  call CTranDetail POExam "$purchase_order"
  order_kind=$(answer Result)
  call CTranDetail POExam $return
  return_kind=$(answer Result)
  insert_return_line 4 "no such part" 2>"$folder/refused.txt" || true
  never_received=$(answer ErrNumber)
}

insert_forgotten_line() {
  insert_return_line 1 "$(order_part 1)"
  lines_shifted=$(lines_of_return)
}

change_and_approve_return() {
  dated "$document_date" CTranDetail UpdateRTN $return i:2 QTY=n:-2
  dated "$document_date" CTranDetail Delete $return $return_type "$purchase_order" "$(order_part 4)" i:4
  returned_while_open=$(quantities_of $return 2)
  set_status $return $return_type APPROVED 1 Approved
  returned_when_approved=$(quantities_of $return 2)
}

show_return() {
  local line quantities told
  quantities=$(order_lines)
  told=$(for line in 1 2 3 4; do show_order_line $line; done)
  printf '%s\n' "$told"
  enter_return
  echo "Entered without the first line of the order:"
  show_documents $return
  insert_forgotten_line
  change_and_approve_return
  echo "The first line inserted, so that the others move, line 2 changed, line 4 deleted, the document approved:"
  show_documents $return
  check "the order's quantities are those of its documents" "$told" "$quantities"
  check "purchase order and return are told apart" "$order_kind $return_kind" "1 2"
  check "a part that was never received is not sent back" "$never_received" 10000115
  check "a line inserted as line 1 moves lines 1, 2, 3 to 2, 3, 4" "$lines_shifted" "1:-1.0,2:-1.0,3:-1.0,4:-1.0"
  check "only when it is approved the return counts" "$returned_while_open, $returned_when_approved" "0 0 0, 2 0 0"
}
