# Draws the figures of docs/performance.md; scripts/plot-bench prepares the data and sets `data` and `pictures`.
set encoding utf8
set terminal svg size 900,480 dynamic background "white" font "sans-serif,14"
set grid linecolor rgb "#dddddd"
set border 3 linecolor rgb "#666666"
set tics nomirror
set key outside right reverse Left
set style data linespoints
set linetype 1 linecolor rgb "#0b6e99" pointtype 7
set linetype 2 linecolor rgb "#c0561a" pointtype 5
set linetype 3 linecolor rgb "#3f7d20" pointtype 9
set linetype 4 linecolor rgb "#7b4b94" pointtype 11
set linetype 5 linecolor rgb "#8a6d0b" pointtype 13
set linetype 6 linecolor rgb "#555555" pointtype 4
set logscale xy
set xlabel "records"
set xrange [* : *] extend
set offsets graph 0.05, graph 0.05, 0, 0

set ylabel "microseconds a record"
set format y "%g"
array groups[3] = ["files", "databases", "singles"]
array heads[3] = ["On record files", "With a database of as many rows, and over the whole list", "One record, in a list of so many"]
do for [group = 1:3] {
    file = data . "/" . groups[group]
    stats file using 1:2 nooutput
    set output pictures . "/per-record-" . groups[group] . ".svg"
    set title heads[group]
    beside = file . "-beside"
    if (system("test -s '" . beside . "' && echo 1") eq "1") {
        set title heads[group] . " (dashed: compared with it)"
        plot for [block = 0 : STATS_blocks - 1] file index block using 1:2 title columnheader(1) linetype block + 1, \
             beside using 1:2:3 with lines dashtype 2 linecolor variable notitle
    } else {
        plot for [block = 0 : STATS_blocks - 1] file index block using 1:2 title columnheader(1) linetype block + 1
    }
}

unset logscale y
set yrange [0 : *]
set ylabel "milliseconds"
array watched[2] = ["gaps", "stops"]
array titles[2] = ["Longest gap between two turns of the event loop", "Until a stop is answered"]
array limits[2] = [100, 50]
do for [at = 1:2] {
    file = data . "/" . watched[at]
    stats file using 1:2 nooutput
    set output pictures . "/" . watched[at] . ".svg"
    set title titles[at]
    plot for [block = 0 : STATS_blocks - 1] file index block using 1:($2 * 1000) title columnheader(1) linetype block + 1, \
         limits[at] with lines linecolor rgb "#aa0000" dashtype 3 title "limit"
}

set logscale y
set autoscale y
set ylabel "MB"
set output pictures . "/memory.svg"
set title "Memory of the program"
plot data . "/reading" using 1:($2 / 1e6) title "all records read", \
     "" using 1:(($3 + 1e8) / 1e6) with lines dashtype 3 linecolor rgb "#aa0000" title "limit: file + 100 MB", \
     data . "/listing" using 1:($2 / 1e6) title "list of all rows", \
     200 with lines dashtype 4 linecolor rgb "#aa0000" title "limit of the list"

reset
set terminal svg size 900,640 dynamic background "white" font "sans-serif,13"
file = data . "/margins"
stats file using 2 nooutput
rows = STATS_records
set output pictures . "/ratios.svg"
set title "Times better than the target (1: just met)"
set logscale x 2
set xrange [* : *]
set yrange [rows - 0.4 : -0.6]
set border 1 linecolor rgb "#666666"
set xtics nomirror
set grid xtics linecolor rgb "#dddddd"
set style fill solid
unset key
set arrow from 1, graph 0 to 1, graph 1 nohead linecolor rgb "#aa0000" front
plot file using (1):1:(1):2:($1 - 0.35):($1 + 0.35):($2 < 1 ? 0xc0561a : 0x0b6e99):ytic(3) with boxxyerror linecolor rgb variable
