# Reads what "ctest --verbose" prints, shows the failures and one line for each group of tests, and ends
# with "N passed, N failed" over all groups. A group ends with such a line of its own; one that dies before
# it counts as a failure, and one that has none as a single test. Exit status 0 only if nothing failed.

# What a group prints follows its number: "2: FAILED tests/scripts/...".
/^[0-9]+: / {
  group = $1 + 0
  line = $0
  sub(/^[0-9]+: /, "", line)
  if (line ~ /^[0-9]+ passed, [0-9]+ failed$/) {
    split(line, counts, " ")
    passed[group] = counts[1]
    failed[group] = counts[3]
    counted[group] = 1
  } else if (line !~ /^(Test command: |Working Directory: |Environment variables: ?$| [A-Z_]+=|Test timeout computed|(ok|skipped) |\[=====|\[  PASSED  \]|$)/) {
    lines[group] = lines[group] line "\n"
  }
  next
}

# "1/3 Test #2: operator ....   Passed    0.05 sec"
/^ *[0-9]+\/[0-9]+ Test +#[0-9]+: / {
  groups++
  group = $0
  sub(/^.*Test +#/, "", group)
  name = group
  sub(/^[0-9]+: /, "", name)
  sub(/ .*$/, "", name)
  group += 0
  if ($0 ~ /   Passed  /) {
    if (!counted[group])
      passed[group] = 1
  } else {
    printf "%s", lines[group]
    if (!counted[group])
      print name " ended without its result:" substr($0, index($0, "***") + 3)
    if (failed[group] == 0)
      failed[group] = 1
  }
  printf "%-26s%d passed, %d failed\n", name, passed[group], failed[group]
  allPassed += passed[group]
  allFailed += failed[group]
}

END {
  if (groups == 0)
    allFailed = 1
  printf "%d passed, %d failed\n", allPassed, allFailed
  exit allFailed > 0
}
