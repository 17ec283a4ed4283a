#!/bin/sh
# Nobody else reads the parameter file, and no password is taken from an argument. Called with the tool.
set -eu
# shellcheck source=tools/refuses.sh
. "$(dirname "$0")/../refuses.sh"
order=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
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
