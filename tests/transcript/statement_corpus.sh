#!/usr/bin/env bash
# Holds the statements that the transcript tests see against the files that keep them, one per class and kind of
# database, each statement once, sorted. With TALLYRA_APPROVE=1 the files take what was seen, and the comparison fails:
# such a run proves nothing.
#
#   statement_corpus.sh KEPT_FOLDER SCRATCH_FOLDER TEST_PROGRAM...
set -euo pipefail
export LC_ALL=C

kept=$1
seen=$2
shift 2

rm -rf "$seen"
mkdir -p "$seen"
log=$seen/statements.log
for program in "$@"; do
  env -u TALLYRA_APPROVE TALLYRA_STATEMENTS="$log" "$program" --gtest_brief=1
done

while IFS=$'\t' read -r class kind; do
  awk -F '\t' -v class="$class" -v kind="$kind" '$1 == class && $2 == kind { print $3 }' "$log" |
    sort -u >"$seen/$class.$kind.sql"
done < <(cut -f 1,2 "$log" | sort -u)
rm "$log"

if [ "${TALLYRA_APPROVE:-}" = 1 ]; then
  mkdir -p "$kept"
  rm -f "$kept"/*.sql
  cp "$seen"/*.sql "$kept"
  echo "The files take what was seen: look at the difference."
  exit 1
fi
diff -r "$kept" "$seen"
