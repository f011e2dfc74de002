# Draws performance-cards.svg: the milliseconds of a full scan by the number of polled cards,
# a curve for each contestant and one for the wire alone.
reset
set border 0
set tics scale 0 textcolor rgb @ink
set terminal svg size 920, 420 font font.",12" background "#ffffff"
set output folder."/performance-cards.svg"
set label 1 "{/:Bold=16 Time for one full scan of all polled cards, in milliseconds}" \
    at screen 24 / 920.0, screen 1 - 27 / 420.0 textcolor rgb @ink
set lmargin at screen 70 / 920.0
set rmargin at screen 690 / 920.0
set tmargin at screen 1 - 70 / 420.0
set bmargin at screen 1 - 360 / 420.0
set xrange [0:16]
set yrange [0:*]
set xtics (1, 2, 4, 8, 12, 16)
set xlabel "polled cards" textcolor rgb @ink
set ylabel "ms" textcolor rgb @ink
set grid ytics linetype 1 linewidth 1 linecolor rgb "0xd9dfe6"
set key at screen 710 / 920.0, screen 1 - 60 / 420.0 left top Left reverse spacing 1.6 \
    textcolor rgb @ink
plot for [i = 1:curves] $cards using 1:i + 2 with linespoints pointtype 7 pointsize 0.5 \
        linewidth 2.2 linecolor rgb colour[i] title curve[i], \
    $cards using 1:2 with lines dashtype 2 linewidth 2.2 linecolor rgb @ink title "the wire alone"
unset output
