# shellcheck shell=bash
# The tests by name, for ./test, which sources this from the root of the tree.

# The unit tests of a module: "Suite.*" of every suite in its folder, joined for --gtest_filter.
suites_of_module() {
  grep -hoE '^TEST(_F|_P)?\([A-Za-z0-9_]+' "tests/unit/$1"/*.cpp | sed 's/.*(//; s/$/.*/' | sort -u | paste -sd:
}

unit_tests() {
  QT_QPA_PLATFORM=offscreen "$1/bin/unit_tests" --gtest_list_tests |
    awk '/^[^ ]/ { suite = $1; next } { sub(/ *#.*/, ""); print suite $1 }'
}

ctest_names() {
  ctest --test-dir "$1" -N | sed -n 's/^ *Test *#[0-9]*: //p'
}

list_names() {
  for folder in tests/unit/*/; do echo "module  $(basename "$folder")"; done
  find tests/scripts -name '*.op' | sort | sed 's#^tests/scripts/#script  #; s#\.op$##'
  unit_tests "$1" | sed 's/^/unit    /'
  ctest_names "$1" | sed 's/^/group   /'
}

# Runs what has one of these names, and sums up.
run_named() {
  local preset=$1 build=build/$1 name filter='' groups='' scripts=() known_units known_groups
  shift
  # Whole lists: "grep -q" ends early, and under "pipefail" its dying writer would count as no match.
  known_units=$(unit_tests "$build")
  known_groups=$(ctest_names "$build")
  for name in "$@"; do
    local found=0 found_scripts
    if [ -d "tests/unit/$name" ]; then
      filter+=:$(suites_of_module "$name") found=1
    elif grep -qF -- "$name" <<<"$known_units"; then
      filter+=:"*$name*" found=1
    fi
    mapfile -t found_scripts < <(find tests/scripts -path "*/$name.op" -o -path "tests/scripts/$name/*.op" | sort)
    [ ${#found_scripts[@]} = 0 ] || { scripts+=("${found_scripts[@]}") found=1; }
    if grep -qxF -- "$name" <<<"$known_groups"; then
      groups+="|$name" found=1
    fi
    [ $found = 1 ] || { echo "There is no test named $name; ./test --list shows the names." >&2 && return 2; }
  done
  local status=0
  if [ -n "$filter" ]; then
    tools/with-server env QT_QPA_PLATFORM=offscreen "$build/bin/unit_tests" --gtest_brief=1 --gtest_filter="${filter#:}" || status=1
  fi
  if [ ${#scripts[@]} != 0 ]; then
    "$build/bin/operator" "${scripts[@]}" || status=1
    "$build/bin/operator" --desktop "${scripts[@]}" || status=1
    tools/with-server "$build/bin/operator" --server "${scripts[@]}" || status=1
  fi
  if [ -n "$groups" ]; then
    tools/with-server ctest --preset "$preset" --verbose -R "^(${groups#|})\$" 2>&1 | awk -f tools/sum-tests.awk || status=1
  fi
  return $status
}
