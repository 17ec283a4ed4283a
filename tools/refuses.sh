# shellcheck shell=bash
# For scripts that try a tool: ends the script if a command succeeds.
refuses() {
  if "$@" 2>/dev/null; then
    echo "was not refused: $*" >&2
    exit 1
  fi
}
