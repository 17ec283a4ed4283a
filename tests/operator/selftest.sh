#!/bin/bash
# Plays the scripts of selftest/, most of which must fail, and compares each result with the script's line "#! LINE: REASON" or
# "#! passed". Called with the player and its options; ends with "N passed, N failed".
set -u -o pipefail
folder=$(dirname "$0")/selftest
passed=0
failed=0
while IFS= read -r line; do
  case $line in
  "FAILED "*) path=${line#FAILED } outcome=${path#*:} path=${path%%:*} ;;
  "ok "*) path=${line#ok } outcome=passed ;;
  *) continue ;;
  esac
  expected=$(sed -n 's/\r$//; s/^\(\xef\xbb\xbf\)\?#! //p' "$path")
  if [ "$outcome" = "$expected" ]; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    printf 'FAILED %s: expected "%s", was "%s"\n' "$path" "$expected" "$outcome"
  fi
done < <("$@" "$folder")
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ "$passed" -eq "$(find "$folder" -name '*.op' | wc -l)" ]
