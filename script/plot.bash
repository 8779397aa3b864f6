# Sourced by script/demo and script/images: draws an input move and its shaken camera over each other.

# plot_shake INPUT.csv SHAKEN.csv PLOT.png
plot_shake() {
    gnuplot <<GNUPLOT
set terminal pngcairo size 1200,760 font "sans,11" background "#ffffff"
set output "$3"
set datafile separator comma
set key autotitle columnhead
set key outside top right horizontal samplen 2
set grid linecolor "#dddddd"
set border 3 linecolor "#666666"
set tics nomirror
set style line 1 linecolor "#9aa0a6" linewidth 3
set style line 2 linecolor "#ff6a00" linewidth 1.5
set multiplot layout 3,1 margins 0.08,0.98,0.07,0.95 spacing 0.06
set ylabel "x, scene units"
plot "$1" using 1:2 with lines linestyle 1 title "input camera", "$2" using 1:2 with lines linestyle 2 title "shaken camera"
unset key
set ylabel "heading, degrees"
plot "$1" using 1:5 with lines linestyle 1, "$2" using 1:5 with lines linestyle 2
set ylabel "pitch, degrees"
set xlabel "frame" offset 0,0.5
plot "$1" using 1:6 with lines linestyle 1, "$2" using 1:6 with lines linestyle 2
unset multiplot
GNUPLOT
}
