#!/usr/bin/env bash
# run_sample.sh PREFIX GENERATOR SCHEMA PROGRAM ARGUMENTS...: a sample client, a script or a program, on a company
# database made for it. The client gets the connection string as its first argument.
source "$(dirname "$0")/sample_company.sh"
wine_client "$4" "$connection" "${@:5}"
