#!/bin/sh
# What is delivered is built with the compiler's and the linker's guards: tests/hardened.sh BINARY...
# With FORTIFY=no the checked library calls are not asked for.
set -u
failed=0
passed=0
expect() {
  if [ "$2" -gt 0 ]; then
    passed=$((passed + 1))
  else
    echo "$binary: $1 is missing"
    failed=$((failed + 1))
  fi
}
for binary in "$@"; do
  dynamic=$(readelf -Wd "$binary")
  imports=$(readelf -W --dyn-syms "$binary")
  expect "position independence" "$(readelf -Wh "$binary" | grep -c 'Type: *DYN')"
  expect "the read-only segment for relocations" "$(readelf -Wl "$binary" | grep -c GNU_RELRO)"
  expect "binding at the start" "$(echo "$dynamic" | grep -c 'BIND_NOW\|FLAGS_1.* NOW')"
  expect "the stack protector" "$(echo "$imports" | grep -c __stack_chk_fail)"
  [ "${FORTIFY-yes}" = no ] || expect "a checked library call" "$(echo "$imports" | grep -c '__[a-z]*_chk')"
done
echo "$passed passed, $failed failed"
[ "$failed" = 0 ]
