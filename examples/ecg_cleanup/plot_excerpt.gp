# Draws twelve seconds of what ecg_cleanup wrote for the recording in examples/data: the picture of README.md.
#   gnuplot -c plot_excerpt.gp FOLDER PICTURE.png
signals = ARG1 . "/cleaned.csv"

set terminal pngcairo size 900,300 font "Sans,11" background "white"
set output ARG2
set datafile separator ","
set grid linecolor rgb "#d8d8d8" linetype 1 linewidth 1
set border linecolor rgb "#606060"
set tics nomirror
set key horizontal top right samplen 3
set xlabel "time in s"
set ylabel "voltage in mV"
set xrange [10:22]
set yrange [-1.6:3.4]
plot signals using 1:2 skip 1 with lines linecolor rgb "#d9822b" title "electrocardiogram as recorded", \
     signals using 1:3 skip 1 with lines linecolor rgb "#1f5fa8" title "after three FIR filters"
