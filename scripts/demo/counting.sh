#!/usr/bin/env bash
# A counted sheet is entered, approved, taken back and approved again, and a large stocktaking is approved. To be
# sourced after stocktaking.sh.
[ "${BASH_SOURCE[0]}" != "$0" ] || source "$(dirname "$0")/../setup.sh" --help

enter_stocktaking() {
  { echo part,counted,price && tr '|' , <<<"$counts"; } >"$folder/sheet.csv"
  verb count import "$folder/sheet.csv" --number $counted_check --department $counted_department --date $counted_on
}

show_counting() {
  local lines_when_open
  choose_counts
  enter_stocktaking
  verb count approve $counted_check
  show_sheet $counted_check 12
  verb count undo $counted_check
  show_sheet $counted_check 12
  lines_when_open=$(query "$(sheet_of $counted_check) SELECT count(*) FROM POSTED")
  verb count approve $counted_check
  check "taken back it had no posting" "$lines_when_open" 0
  check_counted_stocktaking
}

large_stocktaking() { query "SELECT CHECKNO FROM STKCHECKHD WHERE CHECKNO<>'$counted_check'"; }

# The one that the company has counted at the end of the month.
show_large_stocktaking() {
  local number
  number=$(large_stocktaking)
  verb count approve "$number"
  show_sheet "$number" 8
  echo "($(query "SELECT count(*) FROM STKCHECKDT WHERE CHECKNO='$number'") parts counted)"
  check_posting "$number"
}
