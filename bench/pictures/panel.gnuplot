# Draws one figure at `left` and `top`: ARG1 is the title, ARG2 names the data block, which has
# a bar in each row, and ARG3 is the count of digits after the point. The scale begins at 0.
set lmargin at screen (left + 140) / width
set rmargin at screen (left + 342) / width
set tmargin at screen (top - 26) / height
set bmargin at screen (top - 26 - 22 * bars) / height
set label 2 "{/:Bold=13 ".ARG1."}" at screen left / width, screen (top - 11) / height \
    textcolor rgb @ink
number = "%.".ARG3."f"
set autoscale
stats $@ARG2 using 2 name "bar" nooutput
set xrange [0:bar_max]
set yrange [bars - 0.5:-0.5]
plot $@ARG2 using 2:0:(0):2:($0 - 0.38):($0 + 0.38):3:ytic(1) \
        with boxxyerror linecolor rgb variable, \
    $@ARG2 using 2:0:(sprintf(number, $2)) with labels left offset 0.6, 0 textcolor rgb @ink
