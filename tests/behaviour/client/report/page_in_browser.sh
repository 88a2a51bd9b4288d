#!/usr/bin/env bash
# page_in_browser.sh CLIENT COMPANY BROWSER: opens the report page of a made-up company in a headless browser. It asks
# for nothing but its own file, says nothing on the console, draws every bar of its charts, and its totals are those of
# SQL. Without the browser it is left out (77).
set -euo pipefail
client=$1 company=$2 browser=$3
[ -x "$browser" ] || { echo "no browser: install the package chromium"; exit 77; }

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export TALLYRA_DB=$folder/company.db TALLYRA_USER=ADMIN HOME=$folder

fail() { printf 'FAILED: %s\n' "$*" >&2; exit 1; }
quietly() { "$@" >"$folder/log" 2>&1 || { cat "$folder/log"; fail "$*"; }; }

quietly "$company" --db "$TALLYRA_DB" --departments 3 --parts 60 --lines 2000 --months 2
quietly "$client" close 2024/01/31 --yes
quietly "$client" approve 2024/01/31 --yes
quietly "$client" close 2024/02/29 --yes
quietly "$client" report 2024/02/29 --output "$folder/report.html"

# browse PAGE: what the page has become, on the output; the console goes to $folder/console. No name leads anywhere.
browse() {
  timeout 120 "$browser" --headless --no-sandbox --disable-gpu --disable-dev-shm-usage --no-first-run \
    --disable-background-networking --host-resolver-rules='MAP * ~NOTFOUND' --user-data-dir="$folder/profile" \
    --enable-logging=stderr --virtual-time-budget=2000 --dump-dom "file://$1" 2>"$folder/console"
}

browse "$folder/report.html" >"$folder/dom.html"
if grep -a CONSOLE "$folder/console"; then fail 'the page says something on the console'; fi

# A copy that measures itself. It has no policy, so that whatever the page asked for would be tried, and counts.
cat >"$folder/measure.html" <<'END'
<script>onload = () => {
const drawn = [...document.querySelectorAll("svg rect")].map(bar => bar.getBoundingClientRect());
const result = document.createElement("pre");
result.textContent = "requests " + performance.getEntriesByType("resource").length +
  " charts " + document.querySelectorAll("svg").length + " bars " + drawn.length +
  " visible " + drawn.filter(box => box.width > 0.2 && box.height > 5).length +
  " outside " + drawn.filter(box => box.left < 0 || box.right > innerWidth).length +
  " quantity " + document.querySelector("#total-quantity").dataset.value +
  " value " + document.querySelector("#total-value").dataset.value + " end";
document.body.append(result);
}</script>
END
grep -v Content-Security-Policy "$folder/report.html" | sed "/<\/h1>/r $folder/measure.html" >"$folder/measured.html"
# measure PAGE: what it says of itself, in one line.
measure() {
  browse "$1" >"$folder/dom.html"
  grep -ao 'requests [0-9]* charts [0-9]* .* end' "$folder/dom.html" ||
    { cat "$folder/console"; fail 'the page could not be measured'; }
}

# Measuring would find a request.
sed 's|</h1>|&<img src="http://stock.invalid/x.png" alt="">|' "$folder/measured.html" >"$folder/asking.html"
[[ $(measure "$folder/asking.html") == 'requests 1 '* ]] || fail 'a request is not seen'

measured=$(measure "$folder/measured.html")
echo "$measured"
read -r _ requests _ charts _ bars _ visible _ outside _ quantity _ value _ <<<"$measured"
[ "$requests" = 0 ] || fail "the page asked for something $requests times"
[ "$charts" = 3 ] || fail "$charts charts"
[ "$bars" -gt 20 ] && [ "$visible" -ge $((bars - 2)) ] || fail "$visible of $bars bars can be seen"
[ "$outside" = 0 ] || fail "$outside bars lie outside"

total() {
  sqlite3 "$TALLYRA_DB" "SELECT printf('%.4f', SUM($1)) FROM STKTRANHD H JOIN STKTRANDT L ON L.TRANNO=H.TRANNO
    JOIN (SELECT X.PARTNO, X.UPRICE FROM STKTRANDT X JOIN STKTRANHD Y ON X.TRANNO=Y.TRANNO
          WHERE Y.TRANTYPE='STKCLOSEALL' AND Y.TRANDT='2024-03-01 00:00:00') C ON C.PARTNO=L.PARTNO
    WHERE H.TRANTYPE='STK027CLOSE' AND H.TRANDT='2024-03-01 00:00:00'"
}
[ "$(printf '%.4f' "$quantity")" = "$(total L.QTY)" ] || fail "quantity $quantity, SQL says $(total L.QTY)"
[ "$(printf '%.4f' "$value")" = "$(total L.QTY*C.UPRICE)" ] || fail "value $value, SQL says $(total L.QTY*C.UPRICE)"
