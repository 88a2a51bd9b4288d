#!/usr/bin/env bash
# stock_document.sh PREFIX GENERATOR SCHEMA: the sample client that leads stock documents through their life leaves the
# rows that it should, and after the close of their month it changes nothing.
source "$(dirname "$0")/sample_company.sh"
source "$repository/scripts/demo/checks.sh"
source "$repository/scripts/demo/documents.sh"

samples=$repository/samples/vbscript
choose_orders
lead_through_life() {
  wine_client "$samples/stock_document.vbs" "$connection" ADMIN "$1" "$document_date" $document_department \
    "$production_order" "$purchase_order"
}
quantities=$(order_lines)
output=$(lead_through_life $document_prefix)
printf '%s\n' "$output"
# The script shows numbers as its user writes them.
told=$(sed -n '/^order .* open$/{s/\([0-9]\),\([0-9]\)/\1.\2/g;p}' <<<"$output")
check "the order's quantities are those of its documents" "$told" "$quantities"
check_documents

wine_client "$samples/month_end.vbs" "$connection" ADMIN close 2024/02/29
check "after the close the script stops at the guard" \
  "$(lead_through_life LATE | grep -c '^entering issue LATE-1: error 10000112 ')" 1
check "and has stored nothing" "$(query "SELECT count(*) FROM STKTRANHD WHERE TRANNO LIKE 'LATE-%'")" 0
[ "$failed_checks" = 0 ]
