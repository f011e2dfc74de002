# Draws the pictures of a measurement into `folder`, with the data that data.jq has made.
# The ground is white, so that a dark page shows the pictures as well.
set encoding utf8
set datafile missing "?"
set border 0
ink = '"0x2b3440"'
font = "DejaVu Sans"
set tics scale 0 textcolor rgb @ink
set key textcolor rgb @ink

# Each row of a list is the title of a panel, its data block and the digits after the point.
$latencies << EOD
"Command in to last byte at the card, p50, µs" command_quiet_p50 0
"Command in to last byte at the card, p99, µs" command_quiet_p99 0
"Input change to the client, 1 polled card, p50, µs" change_1_p50 0
"Input change to the client, 1 polled card, p99, µs" change_1_p99 0
"Input change to the client, 16 polled cards, p50, µs" change_16_p50 0
"Input change to the client, 16 polled cards, p99, µs" change_16_p99 0
EOD
$rates << EOD
"Full scans of 1 card a second" scans_1 0
"Full scans of 16 cards a second" scans_16 0
"Commands a second, one at a time" single_rate 0
"Commands a second, as a flood" flood_rate 0
"Processor seconds of 1000 commands, flood" flood_cpu 3
"Private memory at rest, KiB" memory_private 0
EOD
$speeds << EOD
"Full scans a second" speed_scans 0
"Input change to line at the client, p50, µs" speed_p50 0
"Processor, per cent of one core" speed_cpu 1
EOD

call "bars.gnuplot" "latency" "latencies" "How long it takes: shorter is better"
call "bars.gnuplot" "rates" "rates" "How much goes through, and what it costs"
call "bars.gnuplot" "speeds" "speeds" "What each speed gives and costs, with 16 polled cards"
if (curves > 0) { load "curves.gnuplot" }
