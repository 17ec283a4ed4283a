# shellcheck shell=bash
# Shared by ./run, ./test and bench/run, which source it from the root of the tree: what is missing is
# installed, and a preset is built.

# Chinese texts go through the command line and the console.
case "$(locale charmap 2>/dev/null)" in
UTF-8) ;;
*) export LC_ALL=C.UTF-8 ;;
esac

as_root() {
  if [ "$(id -u)" = 0 ]; then
    env DEBIAN_FRONTEND=noninteractive "$@"
  else
    sudo env DEBIAN_FRONTEND=noninteractive "$@"
  fi
}

# Installs what these lists of packages name and the machine lacks; needs no rights where nothing is missing.
install_missing() {
  local package missing=()
  while IFS= read -r package; do
    dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
  done < <(grep -hv '^#' "$@")
  [ ${#missing[@]} = 0 ] && return
  echo "Installing ${missing[*]}"
  local output
  if ! output=$(as_root apt-get -q update 2>&1 && as_root apt-get -q -y --no-install-recommends install "${missing[@]}" 2>&1); then
    echo "$output"
    return 1
  fi
}

# Configures a preset, the first time, and builds targets of it (all without any named).
build_preset() {
  local preset=$1
  shift
  install_missing tools/packages || return
  if [ ! -f "build/$preset/build.ninja" ]; then
    cmake --preset "$preset" >/dev/null || return
  fi
  if [ -t 1 ]; then
    cmake --build --preset "$preset" ${1:+--target "$@"}
  else
    cmake --build --preset "$preset" ${1:+--target "$@"} -- --quiet
  fi
}
