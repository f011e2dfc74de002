# Turns the result of a measurement into the data blocks and names that pictures.gnuplot
# draws: a row of a block is a label, a value and a colour. A figure that was not measured
# has an empty block.

# Several daemons in one run differ in their shade.
def shades: ["0x2f6db5", "0x7fb0dd", "0x1d9a8a", "0x86cfc4"];

def coloured:
    [.contestants | map(select(.role == "daemon").label) as $daemons | .[]
     | .label as $who
     | . + {colour: (if .role == "bare loop" then "0x8a919b"
                     elif .role == "tuned gateway" then "0xd98a2b"
                     elif .role == "gateway as shipped" then "0xefc88f"
                     else shades[($daemons | index($who)) % 4] end)}];

def block($name; rows):
    "$\($name) << EOD", rows, "EOD";

def row($who; $value; $colour):
    "\"\($who)\" \($value) \($colour)";

# A row for each contestant that has a value of the figure.
def figure($values; $all; $key):
    block($key | gsub("\\."; "_");
          $all[] | (.label as $who | $values[$key][$who].median // empty) as $value
          | row(.label; $value; .colour));

.figures as $values
| coloured as $all
| [1, 2, 4, 8, 12, 16] as $cards
| [1, 10, 25, 50, 75, 90, 99, 100] as $speeds
| ($all | map(select(.role == "daemon"))[0]) as $daemon
# The gateway as shipped is so much slower that the other curves would coincide.
| ($all | map(select(.role != "gateway as shipped" and $values["scans.1"][.label]))) as $curves
| "contestants = \($all | length)",
  (["command.quiet.p50", "command.quiet.p99", "change.1.p50", "change.1.p99", "change.16.p50",
    "change.16.p99", "scans.1", "scans.16", "single.rate", "flood.rate", "flood.cpu",
    "memory.private"][] as $key | figure($values; $all; $key)),
  (["scans", "p50", "cpu"][] as $what
   | block("speed_\($what)";
           $speeds[] | ($values["speed.\(.).\($what)"][$daemon.label].median // empty) as $value
           | row("\(.) %"; $value; $daemon.colour))),
  "curves = \($curves | length)",
  "array curve[\($curves | length + 1)]",
  "array colour[\($curves | length + 1)]",
  ($curves | to_entries[] | "curve[\(.key + 1)] = \"\(.value.label)\"",
                            "colour[\(.key + 1)] = \(.value.colour)"),
  # A row for each number of cards, with the milliseconds of a full scan: by the wire alone,
  # whose polls take nine bytes of ten bits, and by each contestant.
  block("cards";
        $cards[] | . as $n
        | [$n, $n * 9 * 10 * 1000 / 460800]
          + ($curves | map($values["scans.\($n)"][.label].median // null
                           | if . then 1000 / . else "?" end))
        | map(tostring) | join(" "))
