# Draws what ecg_cleanup wrote for the recording in examples/data.
#   gnuplot -c plot.gp FOLDER PICTURE.png
signals = ARG1 . "/cleaned.csv"
beats = ARG1 . "/beats.csv"
spectra = ARG1 . "/spectrum.csv"
responses = ARG1 . "/responses.csv"

set terminal pngcairo size 1600,1900 font "Sans,15" background "white"
set output ARG2
set datafile separator ","

set style line 1 linecolor rgb "#d9822b" linewidth 1.8 # before
set style line 2 linecolor rgb "#1f5fa8" linewidth 1.8 # after
set style line 3 linecolor rgb "#a03a7a" linewidth 1.8 # high-pass
set style line 4 linecolor rgb "#3f8f3c" linewidth 1.8 # band-stop
set grid linecolor rgb "#d8d8d8" linetype 1 linewidth 1
set border linecolor rgb "#606060"
set tics nomirror
set key horizontal top right samplen 2

set multiplot
set lmargin 10
set rmargin 3

# The signal

set xlabel "time in s"
set ylabel "voltage in mV"
set size 1,0.25

set origin 0,0.75
set title "The whole recording: the baseline wanders before; after, only a trace of the jump at 42 s is left"
set xrange [0:60]
set yrange [-2.5:5]
plot signals using 1:2 skip 1 with lines linestyle 1 title "before", \
     signals using 1:3 skip 1 with lines linestyle 2 title "after"

set origin 0,0.5
set title "Six seconds of it, narrow and broad beats: they keep their shape and their places"
set xrange [14:20]
set yrange [-1.7:3.7]
plot signals using 1:2 skip 1 with lines linestyle 1 title "before", \
     signals using 1:3 skip 1 with lines linestyle 2 title "after", \
     beats using 1:($2 + 0.2) skip 1 with points pointtype 11 pointsize 1.2 linecolor rgb "#303030" \
       title "beat found"

# The spectrum and the filters: all frequencies on the left, the surroundings of the mains on the right

wide = "set size 0.64,0.25; set logscale x; set xrange [0.04:180]; \
  set xtics (0.05, 0.1, 0.2, 0.5, 1, 2, 5, 10, 20, '60' 60, 180)"
narrow = "set size 0.36,0.25; unset logscale x; set xrange [55:65]; set xtics 55,1,65"
set xlabel "frequency in Hz"

set ylabel "density in mV^2/Hz"
set logscale y
set format y "10^{%L}"
set yrange [1e-12:1e3]
set ytics 1e-12,100,1e2
unset mytics
plotSpectra = "plot spectra using 1:2 skip 1 with lines linestyle 1 title 'before', \
                    spectra using 1:3 skip 1 with lines linestyle 2 title 'after'"

set origin 0,0.25
set title "Power spectral density"
eval wide
eval plotSpectra
set origin 0.64,0.25
set title "... around the mains at 60 Hz"
eval narrow
eval plotSpectra

set ylabel "magnitude in dB"
unset logscale y
set format y "%g"
set yrange [-120:30]
set ytics -120,20,0
plotResponses = "plot responses using 1:2 skip 1 with lines linestyle 3 title 'high-pass', \
                      responses using 1:3 skip 1 with lines linestyle 4 title 'band-stop'"

set origin 0,0
set title "Magnitude responses of the filters: high-pass 0.67 Hz, band-stop 58 to 62 Hz"
eval wide
eval plotResponses
set origin 0.64,0
set title "... around the mains at 60 Hz"
eval narrow
eval plotResponses

unset multiplot
