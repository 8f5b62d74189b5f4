# Converts the JSON of a run over several sizes to the blocks that gnuplot draws and the tables of docs/performance.md.

def sizes: [.figures[].records] | unique;
def grouped: tostring | if length > 3 then (.[:-3] | grouped) + "," + .[-3:] else . end;
# Rounds a number: no decimals from 100 on, one from 10 on, otherwise two.
def short:
    if . >= 100 then round | grouped
    elif . >= 10 then (. * 10 | round) / 10 | tostring
    else (. * 100 | round) / 100 | tostring end;
def amount($unit):
    if $unit == "B" then (. / 1e6 | short) + " MB"
    elif . < 1 then (. * 1e3 | short) + " ms"
    else short + " s" end;
def microseconds: 1e6 * .seconds / .counted;
def in_order(f): reduce .[] as $one ([]; if any(.[]; f == ($one | f)) then . else . + [$one] end) | map(f);
def value: if .ratio then (.ratio | short) + " ×" else .unit as $unit | .ours | amount($unit) end;
# How many times better than the limit.
def margin:
    (.ratio // .ours) as $value
    | if .sense == "atLeast" then $value / .wanted else .wanted / ([$value, .wanted / 100] | max) end;

# One block for each operation: its name, then the number of records and the microseconds per record.
def operation_blocks($operations):
    . as $all
    | $operations[] as $operation
    | [$all.figures[] | select(.operation == $operation)] | sort_by(.records)
    | "\"\($operation)\"", (.[] | "\(.records) \(microseconds)"), "", "";
# The same for the tools that they are compared with, and the number of the operation's block, from 1.
def beside_blocks($operations):
    . as $all
    | range($operations | length) as $at
    | [$all.figures[] | select(.operation == $operations[$at] and .theirs != null)] | sort_by(.records)
    | select(length > 0)
    | (.[] | "\(.records) \(1e6 * .theirs / .counted) \($at + 1)"), "", "";

# One block for each matching row of the table: the words before the colon, then records, ours and theirs.
def row_blocks($pattern):
    [.rows[] | select(.records > 0 and (.what | test($pattern)))]
    | group_by(.what)[] | sort_by(.records)
    | "\"\(.[0].what | sub(":.*"; ""))\"", (.[] | "\(.records) \(.ours) \(.theirs // "NaN")"), "", "";

# The rows of the largest size that have a limit: words, times better than the limit.
def margins:
    (sizes | max) as $largest
    | [.rows[] | select(.wanted > 0 and (.records == 0 or .records == $largest))] | to_entries[]
    | "\(.key) \(.value | margin) \"\(.value.what | sub(" \\|.*"; ""))\"";

def line: "| " + join(" | ") + " |";

def wanted_of($rows):
    $rows[-1] as $last
    | (if $last.sense == "atLeast" then "≥ " else "≤ " end)
      + if $last.ratio then ($last.wanted | short) + " ×"
        elif ($rows | map(.wanted) | unique | length) == 1 then $last.wanted | amount($last.unit)
        else "\(1e6 * $last.wanted / $last.records | short) µs a record" end;

def ratio_table:
    . as $all | sizes as $sizes
    | (["what", "compared with", "target"] + ($sizes | map(grouped)) | line), (["---", "---", "---"] + ($sizes | map("---:")) | line),
      ([.rows[] | select(.wanted > 0)] | in_order(.what)[] as $what
       | [$all.rows[] | select(.what == $what)] as $rows
       | ($what | split(" | ") | [.[0], .[1] // ""]) + [wanted_of($rows)]
         + [$sizes[] as $size
            | [$rows[] | select(.records == $size or (.records == 0 and $size == ($sizes | max)))][0]
            | if . == null then "" elif .missed then "**" + value + "**" else value end]
       | line);

def figure_table:
    . as $all | sizes as $sizes
    | (["microseconds a record"] + ($sizes | map(grouped)) + ["compared with", "its microseconds"] | line),
      (["---"] + ($sizes | map("---:")) + ["---", "---:"] | line),
      (.figures | in_order(.operation)[] as $operation
       | [$all.figures[] | select(.operation == $operation)] as $figures
       | [$operation]
         + [$sizes[] as $size
            | [$figures[] | select(.records == $size)][0]
            | if . == null then "not measured"
              else (microseconds | short) + (if .counted == .records then "" else " (of \(.counted | grouped))" end) end]
         + [$figures[-1].beside, ($figures[-1] | if .theirs then 1e6 * .theirs / .counted | short else "" end)]
       | line);

def machine_table:
    .toolkit as $toolkit
    | (.figures | group_by(.records) | map("\(map(.load // 0) | add / length | short) at \(.[0].records | grouped)") | join(", ")) as $loads
    | .machine
    | ("| | |", "|---|---|",
       (["processor", "\(.cpu), \(.cores) cores" + (if .virtual == "" then "" else ", virtual (\(.virtual))" end)],
        ["memory", "\(.memory / 1e9 | short) GB"],
        ["disk", .disk],
        ["system", .system],
        ["libraries", "Qt \($toolkit), \(.libraries)"],
        ["run", "\(.begun) to \(.ended), program as of \(.commit)"],
        ["load", "\(.load.before | short) before, "
                 + (if .load.mean then "\(.load.mean | short) in the mean, \(.load.highest | short) at most" else $loads end)
                 + "; processes waited \(.load.waitedForCore | short) s for a core"]
        | line));
