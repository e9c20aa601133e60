# Draws what filter_families wrote for the recording in examples/data.
#   gnuplot -c plot_families.gp FOLDER PICTURE.png
magnitudes = ARG1 . "/magnitudes.csv"
delays = ARG1 . "/delays.csv"
signals = ARG1 . "/filtered.csv"

set terminal pngcairo size 1600,1400 font "Sans,15" background "white"
set output ARG2
set datafile separator ","

# One row: the mask, then the order of each family.
array required[10]
do for [column = 1:10] {
  stats ARG1 . "/requirements.csv" skip 1 using column nooutput
  required[column] = STATS_min
}
nyquist = 0.5 * required[1]
passEdge = required[2]
stopEdge = required[3]
ripple = required[4]
attenuation = required[5]

array names[5] = ["Butterworth", "Chebyshev I", "Chebyshev II", "elliptic", "equiripple FIR"]
legend(family) = sprintf("%s, order %d", names[family], required[5 + family])

set style line 1 linecolor rgb "#1f5fa8" linewidth 2
set style line 2 linecolor rgb "#3f8f3c" linewidth 2
set style line 3 linecolor rgb "#d9822b" linewidth 2
set style line 4 linecolor rgb "#c23b22" linewidth 2
set style line 5 linecolor rgb "#606060" linewidth 2.2 dashtype (7,4)
set style line 6 linecolor rgb "#a8a8a8" linewidth 1.5 # before
set style rectangle fillcolor rgb "#e4e4e4" fillstyle solid noborder
set grid linecolor rgb "#d8d8d8" linetype 1 linewidth 1
set multiplot

# One legend for all, above them

set size 1,0.05
set origin 0,0.95
unset border
unset tics
set xrange [0:1]
set yrange [0:1]
set key center center horizontal samplen 3 width 1
plot for [family = 1:5] NaN with lines linestyle family title legend(family)

unset key
set border 31 linecolor rgb "#606060"
set tics nomirror
set lmargin 10
set rmargin 3
set size 0.5,0.475

# The mask: no response may enter what is grey.

top = 10.0
bottom = -2.0 * attenuation - 10.0
set origin 0,0.475
set title sprintf("Gain: no filter may enter the grey; %g dB from %g Hz on", -attenuation, stopEdge)
set xlabel "frequency in Hz"
set ylabel "gain in dB"
set xrange [0:nyquist]
set yrange [bottom:top]
set object 1 rectangle from 0,bottom to passEdge,-ripple behind
set object 2 rectangle from stopEdge,-attenuation to nyquist,top behind
set object 3 rectangle from 0,0 to passEdge,top behind
plot for [family = 1:5] magnitudes using 1:(column(1 + family)) skip 1 with lines linestyle family notitle

set origin 0.5,0.475
set title sprintf("... in the pass band: at least %g dB up to %g Hz", -ripple, passEdge)
set xrange [0:1.08 * passEdge]
set yrange [-2.0 * ripple:0.5 * ripple]
set object 1 rectangle from 0,-2.0 * ripple to passEdge,-ripple behind
set object 2 rectangle from 0,0 to passEdge,0.5 * ripple behind
unset object 3
plot for [family = 1:5] magnitudes using 1:(column(1 + family)) skip 1 with lines linestyle family notitle
unset object 1
unset object 2

set origin 0,0
set title "Group delay: constant for the FIR filter only"
set ylabel "group delay in ms"
set xrange [0:stopEdge]
set yrange [0:*]
set arrow 1 from passEdge,graph 0 to passEdge,graph 1 nohead linecolor rgb "#606060" dashtype (2,3)
set label 1 "pass edge " at passEdge,graph 0.96 right textcolor rgb "#606060"
plot for [family = 1:5] delays using 1:(column(1 + family)) skip 1 with lines linestyle family notitle
unset arrow 1
unset label 1

set origin 0.5,0
set title "One beat, filtered as it comes in"
set xlabel "time in s"
set ylabel "voltage in mV"
set xrange [16.70:16.90]
set xtics 0.05
set yrange [*:*]
set key top right samplen 3 width 0
plot signals using 1:2 skip 1 with lines linestyle 6 title "before", \
     for [family = 1:5] signals using 1:(column(2 + family)) skip 1 with lines linestyle family notitle

unset multiplot
