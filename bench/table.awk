# Reads Google Benchmark's CSV with its medians and prints the benchmarks beside their baselines.

function row(name, unit, ours, baseline, limit) {
  if (baseline > 0)
    printf "%-28s %9.2f %9.2f %s %7.2f x  (at most %s x)\n", name, ours, baseline, unit, ours / baseline, limit
  else
    printf "%-28s %9.4f %9s %s %9s  (at most %s %s)\n", name, ours, "-", unit, "", limit, unit
}

$1 ~ /_median"?$/ {
  gsub(/"/, "", $1)
  sub(/_median$/, "", $1)
  split($1, parts, "/")
  time[parts[1] "/" parts[2]] = $3
  memory[parts[1] "/" parts[2]] = $NF
}
END {
  printf "%-28s %9s %9s\n", "", "program", "baseline"
  row("Start, painted and ready", "ms", time["Start/program"], time["Start/baseline"], "1.4")
  row("Start, peak memory", "MB", memory["Start/program"], memory["Start/baseline"], "1.4")
  row("Save of 20 lines, voucher", "ms", time["Save/program"], time["Save/baseline"], "1.3")
  row("Its values checked", "ms", time["SaveShape/program"], time["Save/program"], "0.05")
  row("One keystroke of 200 lines", "ms", time["Typing/program"], 0, "2")
  row("Balance over 10,000 rows", "ms", time["Balance10k/program"], time["Balance10k/baseline"], "1.2")
  row("Balance over 100,000 rows", "ms", time["Balance100k/program"], time["Balance100k/baseline"], "1.2")
  row("Balance over 1,000,000 rows", "ms", time["Balance1M/program"], time["Balance1M/baseline"], "1.2")
  row("Write-off, 10,000 bills", "ms", time["WriteOff10k/program"], time["WriteOff10k/baseline"], "3")
  row("Write-off, 10,000 to 1,000", "ms", time["WriteOff10k/program"], time["WriteOff1k/program"], "12")
  row("Matching, 32,767 lines", "ms", time["Matching/program"], time["Matching/baseline"], "1.5")
  row("Matching, peak of a line", "B", memory["Matching/program"], memory["Matching/baseline"], "1.5")
  row("Server, one row", "ms", time["ServerLookUp/program"], time["ServerLookUp/baseline"], "1.3")
  row("Server, list of 10,000", "ms", time["ServerList/program"], time["ServerList/baseline"], "1.3")
  row("Server, one write", "ms", time["ServerWrite/program"], time["ServerWrite/baseline"], "1.3")
  row("Export of 32,767 x 25 cells", "ms", time["Export/program"], time["Export/baseline"], "1.5")
  row("A bill by its template", "ms", time["Template/program"], time["Template/baseline"], "1.3")
  row("The first, office to start", "ms", time["FirstTemplate/program"], time["FirstTemplate/baseline"], "1.3")
  row("Code picker, open", "ms", time["PickerOpen/program"], time["PickerList/baseline"], "2")
  row("Code picker, refresh", "ms", time["PickerRefresh/program"], time["PickerList/baseline"], "2")
  row("Code picker, search", "ms", time["PickerSearch/program"], time["PickerSearch/baseline"], "2")
}
