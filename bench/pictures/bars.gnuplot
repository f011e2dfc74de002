# Draws panels in two columns below a heading into ARG1.svg of the folder. ARG2 names the
# list of the panels, ARG3 is the heading. A picture without bars is not drawn.
stem = ARG1
words = ARG3
eval sprintf("panels = |$%s|", ARG2)
array panel[panels]
array rows[panels]
bars = 0
do for [i = 1:panels] {
    eval sprintf("panel[i] = $%s[i]", ARG2)
    eval sprintf("rows[i] = |$%s|", word(panel[i], 2))
    bars = rows[i] > bars ? rows[i] : bars
}

# In points: the heading's height, and a panel with its title, its bars and the gap below.
heading = 50.0
panelHeight = 26.0 + 22.0 * bars + 16.0
width = 920.0
height = heading + panelHeight * ((panels + 1) / 2)

if (bars > 0) {
    set terminal svg size width, height font font.",12" background "#ffffff"
    set output folder."/performance-".stem.".svg"
    set multiplot
    unset key
    unset xtics
    set style fill solid
    set label 1 "{/:Bold=16 ".words."}" at screen 24 / width, screen 1 - 27 / height \
        textcolor rgb @ink
    do for [i = 1:panels] {
        left = i % 2 == 1 ? 24.0 : 460.0
        top = height - heading - panelHeight * ((i - 1) / 2)
        if (rows[i] > 0) {
            call "panel.gnuplot" word(panel[i], 1) word(panel[i], 2) word(panel[i], 3)
            unset label 1
        }
    }
    unset multiplot
    unset output
    unset label
}
