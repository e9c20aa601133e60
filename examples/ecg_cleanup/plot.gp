# Draws what ecg_cleanup wrote for the recording in examples/data.
#   gnuplot -c plot.gp FOLDER PICTURE.png
signals = ARG1 . "/cleaned.csv"
beats = ARG1 . "/beats.csv"
spectra = ARG1 . "/spectrum.csv"
responses = ARG1 . "/responses.csv"

set terminal pngcairo size 1600,2640 font "Sans,15" background "white"
set output ARG2
set datafile separator ","

set style line 1 linecolor rgb "#d9822b" linewidth 1.8 # before
set style line 2 linecolor rgb "#1f5fa8" linewidth 1.8 # after, FIR
set style line 3 linecolor rgb "#a03a7a" linewidth 1.8 # after, IIR
# The filters: FIR drawn through, IIR of the same purpose dashed.
set style line 4 linecolor rgb "#1f5fa8" linewidth 1.8
set style line 5 linecolor rgb "#1f5fa8" linewidth 2.2 dashtype (8,5)
set style line 6 linecolor rgb "#c23b22" linewidth 1.8
set style line 7 linecolor rgb "#c23b22" linewidth 2.2 dashtype (8,5)
set style line 8 linecolor rgb "#3f8f3c" linewidth 1.8
set style line 9 linecolor rgb "#3f8f3c" linewidth 2.2 dashtype (8,5)
set grid linecolor rgb "#d8d8d8" linetype 1 linewidth 1
set border linecolor rgb "#606060"
set tics nomirror
set key horizontal top right samplen 3

set multiplot
set lmargin 10
set rmargin 3
row(n) = 1.0 - n / 6.0

# The signal

set xlabel "time in s"
set ylabel "voltage in mV"
set size 1,1/6.0

set origin 0,row(1)
set title "The whole recording: the baseline wanders before; after, only a trace of the jump at 42 s is left"
set xrange [0:60]
set yrange [-2.5:5]
plot signals using 1:2 skip 1 with lines linestyle 1 title "before", \
     signals using 1:3 skip 1 with lines linestyle 2 title "after FIR filters"

set origin 0,row(2)
set title "Six seconds of it, narrow and broad beats: they keep their shape and their places"
set xrange [14:20]
set yrange [-1.7:3.7]
plot signals using 1:2 skip 1 with lines linestyle 1 title "before", \
     signals using 1:3 skip 1 with lines linestyle 2 title "after FIR filters", \
     beats using 1:($2 + 0.2) skip 1 with points pointtype 11 pointsize 1.2 linecolor rgb "#303030" \
       title "beat found"

set origin 0,row(3)
set title "Two beats: the IIR filters work as the signal comes in, some milliseconds late and with a shifted phase"
set xrange [15.9:17.1]
set xtics 0.1
set yrange [-1.3:2.9]
plot signals using 1:3 skip 1 with lines linestyle 2 title "after FIR filters, delay taken out", \
     signals using 1:4 skip 1 with lines linestyle 3 title "after IIR filters, as they come"
set xtics autofreq

# The spectrum and the filters: all frequencies on the left, the surroundings of the mains on the right

wide = "set size 0.64,1/6.0; set logscale x; set xrange [0.04:180]; \
  set xtics (0.05, 0.1, 0.2, 0.5, 1, 2, 5, 10, 20, '60' 60, 180)"
narrow = "set size 0.36,1/6.0; unset logscale x; set xrange [55:65]; set xtics 55,1,65"
set xlabel "frequency in Hz"

set ylabel "density in mV^2/Hz"
set logscale y
set format y "10^{%L}"
set yrange [1e-12:1e3]
set ytics 1e-12,100,1e2
unset mytics
plotSpectra = "plot spectra using 1:2 skip 1 with lines linestyle 1 title 'before', \
                    spectra using 1:4 skip 1 with lines linestyle 3 title 'after IIR', \
                    spectra using 1:3 skip 1 with lines linestyle 2 title 'after FIR'"

set origin 0,row(4)
set title "Power spectral density"
eval wide
eval plotSpectra
set origin 0.64,row(4)
set title "... around the mains at 60 Hz"
eval narrow
eval plotSpectra

set ylabel "magnitude in dB"
unset logscale y
set format y "%g"
set yrange [-120:30]
set ytics -120,20,0
plotHighPasses = "responses using 1:2 skip 1 with lines linestyle 4 title 'high-pass FIR', \
                  responses using 1:3 skip 1 with lines linestyle 5 title 'IIR'"
plotBandStops = "responses using 1:4 skip 1 with lines linestyle 6 title 'band-stop FIR', \
                 responses using 1:5 skip 1 with lines linestyle 7 title 'IIR'"

set origin 0,row(5)
set title "Magnitude responses: high-pass 0.67 Hz, band-stop 58 to 62 Hz"
eval wide
eval "plot " . plotHighPasses . ", " . plotBandStops
set origin 0.64,row(5)
set title "... around the mains at 60 Hz"
eval narrow
eval "plot " . plotBandStops

# The low-passes: both bands on the left, the ripple of the pass band on the right

plotLowPasses = "plot responses using 1:6 skip 1 with lines linestyle 8 title 'equiripple FIR', \
                      responses using 1:7 skip 1 with lines linestyle 9 title 'Chebyshev II IIR'"

set origin 0,row(6)
set title "Magnitude responses: low-pass, pass band to 70 Hz, stop band from 100 Hz"
set size 0.64,1/6.0
set xrange [0:180]
set xtics 0,20,180
set yrange [-90:15]
set ytics -80,20,0
eval plotLowPasses
set origin 0.64,row(6)
set title "... in the pass band"
set size 0.36,1/6.0
set xrange [0:80]
set xtics 0,10,80
set yrange [-0.4:0.3]
set ytics -0.4,0.1,0.2
eval plotLowPasses

unset multiplot
