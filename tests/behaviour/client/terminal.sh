#!/usr/bin/env bash
# terminal.sh PROGRAMS: how the console client looks in a real terminal, of 40 and of 120 columns: tables are fitted to
# it, a close redraws one line, and neither is so behind a pipe. Ends with 77, skipped, on a machine without tmux.
set -uo pipefail
command -v tmux >/dev/null || exit 77
PATH=$(realpath "$1"):$PATH
folder=$(mktemp -d)
socket=$folder/socket
trap 'tmux -S "$socket" kill-server 2>/dev/null; rm -rf "$folder"' EXIT
cd "$folder" || exit 1
unset TALLYRA_LANGUAGE TALLYRA_KIND TALLYRA_CONFIG TMUX
export XDG_CONFIG_HOME=$folder TALLYRA_DB=$folder/company.db TALLYRA_USER=ADMIN LC_ALL=C.UTF-8
failed=0

# check NAME ACTUAL EXPECTED
check() {
  [ "$2" = "$3" ] && return
  failed=$((failed + 1))
  printf '%s: %s instead of %s\n' "$1" "$2" "$3"
}

# shown COLUMNS COMMAND: what stands on the screen when the command has ended; what was sent there is in the file sent.
shown() {
  tmux -S "$socket" new-session -d -x "$1" -y 1000 \
    "tmux -S $socket wait-for begin; $2; tmux -S $socket wait-for -S ended; sleep 100"
  tmux -S "$socket" pipe-pane -o "cat >'$folder/sent'"
  tmux -S "$socket" wait-for -S begin
  tmux -S "$socket" wait-for ended
  tmux -S "$socket" capture-pane -p
  tmux -S "$socket" kill-server
}
# The lines of a table of department 10: one that was broken by the edge would be two.
rows() { grep -c '^10  '; }

# Large enough that its close takes longer than progress is looked at.
tallyra-company --db company.db --departments 30 --parts 2000 --lines 300000 >/dev/null || exit 1
sheet="tallyra-client count sheet 10 2024/01/15 --quiet"
piped=$($sheet)
screen=$(shown 120 "$sheet")
check "lines of a sheet in 120 columns" "$(rows <<<"$screen")" "$(rows <<<"$piped")"
check "a sheet fits into 120 columns" "$([ "$(wc -L <<<"$screen")" -le 120 ] && echo yes)" yes
check "a sheet is not shortened behind a pipe" "$(grep -c … <<<"$piped")" 0

# Where the columns do not fit beside each other they stand below each other: nothing is wider than the terminal.
document=$(tallyra-client list CTranHead --type STK010POREV --limit 1 --csv --quiet | tail -n 1 | cut -d, -f1)
for look in "$sheet" "tallyra-client list CTranHead --limit 5 --quiet" "tallyra-client show $document --quiet"; do
  shown 40 "$look" >screen
  check "'$look' fits into 40 columns" "$([ "$(tr -d '\r' <sent | wc -L)" -le 40 ] && echo yes)" yes
done
shown 40 "tallyra-client list CTranDetail --department 10 --limit 9 --quiet" >screen
check "each of nine lines of documents has its own lines in 40 columns" "$(grep -c '^part   ' screen)" 9

close="tallyra-client close 2024/01/31 --yes"
for columns in 40 120; do
  screen=$(shown $columns "$close")
  drawn=$(tr '\r' '\n' <sent | grep '%')
  check "a close in $columns columns is told" "$(grep -c '^Closed 2024/01/31' <<<"$screen")" 1
  check "its progress is redrawn" "$([ -n "$drawn" ] && echo yes)" yes
  check "its progress leaves the last of $columns columns free" \
    "$([ "$(wc -L <<<"$drawn")" -lt $columns ] && echo yes)" yes
  check "nothing of its progress is left on the screen" "$(grep -c '%' <<<"$screen")" 0
  tallyra-client reopen 2024/01/31 --yes --quiet
done
$close >out.txt 2>error.txt
check "nothing is redrawn behind a pipe" "$(cat out.txt error.txt | grep -c $'\r')" 0
echo "$failed of the looks failed"
[ "$failed" = 0 ]
