# Sourced by script/images: draws motions that take more than two curves.

# The settings that every plot shares, for the head of a gnuplot script.
plot_style='
set datafile separator comma
set grid linecolor "#dddddd"
set border 3 linecolor "#666666"
set tics nomirror
set style line 1 linecolor "#9aa0a6" linewidth 3
set style line 2 linecolor "#ff6a00" linewidth 1.5
set style line 3 linecolor "#1a73e8" linewidth 1.5
set style line 4 linecolor "#188038" linewidth 1.5
'

# plot_overshoot INPUT.csv NONE.csv QUARTER.csv FULL.csv PLOT.png: headings of the same move with overshoot 0, 25 and 100 %.
plot_overshoot() {
    gnuplot <<GNUPLOT
set terminal pngcairo size 1200,760 font "sans,11" background "#ffffff"
set output "$5"
$plot_style
set key outside top right horizontal samplen 2
set xrange [0:270]
set multiplot layout 2,1 margins 0.08,0.98,0.08,0.94 spacing 0.1
set ylabel "heading, degrees"
plot "$1" using 1:5 skip 1 with lines linestyle 1 title "input camera", \
     "$2" using 1:5 skip 1 with lines linestyle 4 title "overshoot 0 %", \
     "$3" using 1:5 skip 1 with lines linestyle 2 title "25 %", \
     "$4" using 1:5 skip 1 with lines linestyle 3 title "100 %"
unset key
set xrange [35:90]
set xlabel "frame" offset 0,0.5
plot "$1" using 1:5 skip 1 with lines linestyle 1, "$2" using 1:5 skip 1 with linespoints linestyle 4 pointtype 7 pointsize 0.4, \
     "$3" using 1:5 skip 1 with linespoints linestyle 2 pointtype 7 pointsize 0.4, \
     "$4" using 1:5 skip 1 with linespoints linestyle 3 pointtype 7 pointsize 0.4
unset multiplot
GNUPLOT
}

# plot_jolt JOLT.csv PLOT.png: columns frame, envelope target, envelope, and the three offsets in scene units.
plot_jolt() {
    gnuplot <<GNUPLOT
set terminal pngcairo size 1200,640 font "sans,11" background "#ffffff"
set output "$2"
$plot_style
set key inside top right horizontal samplen 2
set multiplot layout 2,1 margins 0.08,0.98,0.09,0.93 spacing 0.1
set ylabel "envelope, %"
plot "$1" using 1:(100 * \$2) with steps linestyle 1 title "fired and falling off", \
     "$1" using 1:(100 * \$3) with lines linestyle 2 title "smoothed"
set ylabel "offset, scene units"
set xlabel "frame" offset 0,0.5
plot "$1" using 1:4 with lines linestyle 2 title "x", "$1" using 1:5 with lines linestyle 3 title "y", \
     "$1" using 1:6 with lines linestyle 4 title "z"
unset multiplot
GNUPLOT
}
