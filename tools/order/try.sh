#!/bin/sh
# Nobody else reads the parameter file, and no password is taken from an argument. Called with the tool.
set -eu
order=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
refuses() {
  if "$@" 2>/dev/null; then
    echo "was not refused: $*" >&2
    exit 1
  fi
}
size() {
  wc -c <"$folder/SysPar.dll"
}

refuses "$order" "$folder" UserPSW=secret
refuses "$order" "$folder" ConDataBasePWD=secret
test ! -e "$folder/SysPar.dll"
"$order" "$folder" 付款
test "$(stat -c %a "$folder/SysPar.dll")" = 600
bare=$(size)
ConDataBasePWD=secret UserPSW=of-mine "$order" "$folder" 付款
test "$(size)" = $((bare + 13))
