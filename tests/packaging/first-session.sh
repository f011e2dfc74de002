#!/bin/bash
# Runs in the tree, in a network of its own: starts the simulated bus and the
# daemon, sets an output and stops both.
set -eu
trace=/tmp/trace

fail() {
    echo "FAILED: $*; the log:" >&2
    cat /var/log/zolt/zolt.log >&2 || true
    exit 1
}

waitFor() {
    for _ in {1..300}; do
        if "$@" >/dev/null 2>&1; then return; fi
        sleep 0.1
    done
    return 1
}

isGone() { ! kill -0 "$1" 2>/dev/null; }

/usr/bin/zolt-sim --bus /usr/share/zolt-sim/buses/all-kinds.bus --link /dev/ttyUSB0 \
    --trace none --trace-file "$trace" </dev/null &
simulator=$!
waitFor test -e /dev/ttyUSB0 || fail "the simulated bus did not start"
# The udev rule does this with an adapter.
chgrp dialout "$(readlink -f /dev/ttyUSB0)"
chmod 0660 "$(readlink -f /dev/ttyUSB0)"

# The unit does this.
mkdir /run/zolt
chown zolt:zolt /run/zolt
setpriv --reuid zolt --regid zolt --groups dialout /usr/sbin/zolt >/tmp/output
waitFor test -s /run/zolt/zolt.pid || fail "the daemon did not start"
daemon=$(cat /run/zolt/zolt.pid)
[ "$(stat -c %U "/proc/$daemon")" = zolt ] || fail "it does not run as zolt"

# This port opens last of the three; until then a port may still be closed.
waitFor grep -q 'MON interface listening' /var/log/zolt/zolt.log || fail "the ports did not open"
for port in 4001:CAE 4002:IO 4003:MON; do
    exec 3<>"/dev/tcp/127.0.0.1/${port%:*}"
    read -r -t 20 welcome <&3 || fail "port ${port%:*} does not answer"
    exec 3>&-
    [ "$welcome" = "ZOLT ${port#*:} interface is ready"$'\r' ] || fail "port ${port%:*} said $welcome"
done
waitFor grep -q 'bus>  11 | 31' "$trace" || fail "the cards were not identified"
zoltctl set 5 1 FB >/dev/null || fail "zoltctl could not set an output"
waitFor grep -q 'card 5 digital-output: FF FB' "$trace" || fail "the card was not set"
[ "$(stat -c %U /var/log/zolt/zolt.log)" = zolt ] || fail "the log is not zolt's"

kill "$daemon"
waitFor isGone "$daemon" || fail "the daemon did not stop"
kill "$simulator"
wait "$simulator" || fail "the simulated bus did not end well"
rm -r /run/zolt "$trace" /tmp/output
