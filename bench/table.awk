# Reads Google Benchmark's CSV with its medians and prints the figures beside their floors.

function row(figure, unit, ours, floor, limit) {
  if (floor > 0)
    printf "%-28s %9.2f %9.2f %s %7.2f x  (at most %s x)\n", figure, ours, floor, unit, ours / floor, limit
  else
    printf "%-28s %9.4f %9s %s %9s  (at most %s %s)\n", figure, ours, "-", unit, "", limit, unit
}

$1 ~ /_median"?$/ {
  gsub(/"/, "", $1)
  sub(/_median$/, "", $1)
  split($1, parts, "/")
  time[parts[1] "/" parts[2]] = $3
  memory[parts[1] "/" parts[2]] = $NF
}
END {
  printf "%-28s %9s %9s\n", "", "program", "floor"
  row("Start, painted and ready", "ms", time["Start/program"], time["Start/floor"], "1.4")
  row("Start, peak memory", "MB", memory["Start/program"], memory["Start/floor"], "1.4")
  row("Save of 20 lines, voucher", "ms", time["Save/program"], time["Save/floor"], "1.3")
  row("Its values checked", "ms", time["SaveShape/program"], time["Save/program"], "0.05")
  row("One keystroke of 200 lines", "ms", time["Typing/program"], 0, "2")
  row("Balance over 10,000 rows", "ms", time["Balance10k/program"], time["Balance10k/floor"], "1.2")
  row("Balance over 100,000 rows", "ms", time["Balance100k/program"], time["Balance100k/floor"], "1.2")
  row("Balance over 1,000,000 rows", "ms", time["Balance1M/program"], time["Balance1M/floor"], "1.2")
  row("Write-off, 10,000 bills", "ms", time["Bench10k/program"], time["Bench10k/floor"], "3")
  row("Write-off, 10,000 to 1,000", "ms", time["Bench10k/program"], time["Bench1k/program"], "12")
  row("Matching, 32,767 lines", "ms", time["Matching/program"], time["Matching/floor"], "1.5")
  row("Matching, peak of a line", "B", memory["Matching/program"], memory["Matching/floor"], "1.5")
  row("Server, one row", "ms", time["ServerLookUp/program"], time["ServerLookUp/floor"], "1.3")
  row("Server, list of 10,000", "ms", time["ServerList/program"], time["ServerList/floor"], "1.3")
  row("Server, one write", "ms", time["ServerWrite/program"], time["ServerWrite/floor"], "1.3")
  row("Export of 32,767 x 25 cells", "ms", time["Export/program"], time["Export/floor"], "1.5")
  row("A bill by its template", "ms", time["Template/program"], time["Template/floor"], "1.3")
  row("The first, office to start", "ms", time["FirstTemplate/program"], time["FirstTemplate/floor"], "1.3")
  row("Code picker, open", "ms", time["PickerOpen/program"], time["PickerList/floor"], "2")
  row("Code picker, refresh", "ms", time["PickerRefresh/program"], time["PickerList/floor"], "2")
  row("Code picker, search", "ms", time["PickerSearch/program"], time["PickerSearch/floor"], "2")
}
