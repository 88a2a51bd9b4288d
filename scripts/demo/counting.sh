#!/usr/bin/env bash
# A stocktaking is entered, approved, un-approved and approved again, and a large one is approved. With $classes "dll"
# the VBScript client does it. To be sourced after stocktaking.sh.
[ "${BASH_SOURCE[0]}" != "$0" ] || source "$(dirname "$0")/../setup.sh" --help

enter_stocktaking() {
  local part quantity price
  if [ "$classes" = dll ]; then
    local steps=(open $counted_on $counted_department)
    while IFS='|' read -r part quantity price; do steps+=(count "$part" "$quantity" "$price"); done <<<"$counts"
    sample stocktaking $counted_check "${steps[@]}" show >"$folder/shown.txt"
  else
    dated $counted_on CCheckHead Insert $counted_check CHECKNO=$counted_check CHECKDT=$counted_on \
      DEPTNO=$counted_department CHECKBY=ADMIN STATUS=Open STATUSSN=i:0 ADDBY=ADMIN
    while IFS='|' read -r part quantity price; do
      dated $counted_on CCheckDetail Insert $counted_check "$part" CHECKNO=$counted_check PARTNO="$part" \
        QTY="n:$quantity" UPRICE="n:$price" ADDBY=ADMIN </dev/null
    done <<<"$counts"
  fi
}

# approve_stocktaking CHECK DATE: after an error that is no refusal the header tells whether it succeeded, by the status
# and the moment of this approval. Whether its posting has got a number is told by no error.
approve_stocktaking() {
  if [ "$classes" = dll ]; then
    sample stocktaking "$1" approve
  else
    local moment told
    call CTranHead ValidCloseDT "d:$2"
    moment=$(new_moment "$1")
    client CCheckHead Update "$1" STATUSSN=i:1 STATUS=Approved STATUSBY=ADMIN "STATUSDT=d:$moment" APPROVED \
      >"$folder/answer.txt" || true
    told="result $(answer Result), error $(answer ErrNumber) $(answer ErrDescription)"
    if [ "$(answer Result)" != 100 ]; then
      case $(answer ErrNumber) in 10000002 | 10000016) echo "refused: $told" && return 1 ;; esac
      call CCheckHead Read "$1"
      [ "$(returned STATUSSN) $(returned STATUSDT)" = "1 $moment" ] || { echo "not approved: $told" && return 1; }
      told+="; read back, the stocktaking is approved"
    fi
    echo "approved: $told"
    client CTranHead Read "" STKCHECKISS >"$folder/answer.txt" || true
    [ "$(answer ErrNumber)" = 10000003 ] || {
      echo "the posting of stocktaking $(returned REFERENCE) has no number. Once numbers are issued again," \
        "un-approve every stocktaking with such a posting, then approve each again"
      return 1
    }
  fi
}

# new_moment CHECK: the present, to the second, once it is another moment than the header has.
new_moment() {
  local moment
  call CCheckHead Read "$1"
  while moment=$(date '+%Y/%m/%d %H:%M:%S') && [ "$(returned STATUSDT)" = "$moment" ]; do sleep 0.1; done
  echo "$moment"
}

reopen_stocktaking() {
  if [ "$classes" = dll ]; then
    sample stocktaking $counted_check unapprove >/dev/null
  else
    dated $counted_on CCheckHead Update $counted_check STATUSSN=i:0 STATUS=Open STATUSBY=ADMIN UNAPPROVED
  fi
}

show_counting() {
  local lines_when_open
  choose_counts
  enter_stocktaking
  approve_stocktaking $counted_check $counted_on
  show_sheet $counted_check 12
  reopen_stocktaking
  echo "Un-approved:"
  show_sheet $counted_check 12
  lines_when_open=$(query "$(sheet_of $counted_check) SELECT count(*) FROM POSTED")
  approve_stocktaking $counted_check $counted_on
  check "un-approved it had no posting" "$lines_when_open" 0
  check_counted_stocktaking
}

# The one that the company has counted at the end of the month.
show_large_stocktaking() {
  local number date
  number=$(query "SELECT CHECKNO FROM STKCHECKHD WHERE CHECKNO<>'$counted_check'")
  date=$(query "SELECT strftime('%Y/%m/%d', CHECKDT) FROM STKCHECKHD WHERE CHECKNO='$number'")
  approve_stocktaking "$number" "$date"
  show_sheet "$number" 8
  echo "($(query "SELECT count(*) FROM STKCHECKDT WHERE CHECKNO='$number'") parts counted)"
  check_posting "$number"
}
