#!/bin/sh
# Installs what is missing, builds zolt and runs it on a simulated card bus, in
# private views of /etc, /run and /dev.
set -eu

usage() {
    cat <<'END'
usage: ./run.sh [--bus FILE] [--ports CAE,IO,MON] [--telnet] [--help]

  --bus FILE             the cards on the simulated bus (default: one of each kind,
                         apps/zolt-sim/buses/all-kinds.bus)
  --ports CAE,IO,MON     the three TCP ports (default: 4001,4002,4003)
  --telnet               lines of clients end with CR LF, as telnet and nc -C send them
                         (default: LF alone, as nc sends them)
  --help                 this text

What you type while it runs goes to the simulated bus: "help" lists its controls.
Ctrl-C stops everything.
END
}

fail() {
    echo "run.sh: $*" >&2
    exit 1
}

# ---- inside the private views --------------------------------------------------

# zoltctl outside gets a copy: by itself it would read the machine's own.
writeConfiguration() {
    cat >/etc/zolt/zoltconf.xml <<END
<?xml version="1.0"?>
<ZOLTConfig>
  <Debuglog File="/run/zolt/zolt.log" Loglevel="1"/>
  <Speed Percent="50"/>
  <InitPollState Action="TRUE"/>
  <AutoDiscover Action="TRUE"/>
  <Interfaces>
    <Interface Name="CAE" InpSeparator="$lineEnd" OutSeparator="\r\n" Port="$caePort"/>
    <Interface Name="IO" InpSeparator="$lineEnd" OutSeparator="\r\n" Port="$ioPort"/>
    <Interface Name="MON" InpSeparator="$lineEnd" OutSeparator="\r\n" Port="$monPort"/>
  </Interfaces>
</ZOLTConfig>
END
    cp /etc/zolt/zoltconf.xml "$copy"
}

explain() {
    cat <<END

zolt is running on a simulated card bus ($(basename "$bus")); its ports are
  console $caePort, IO $ioPort, monitor $monPort
Each takes one client at a time and answers some 3 seconds after its "is waiting" line below.
END
    if [ "$bus" = "$allKinds" ]; then
        cat <<END
In other terminals:
  build/release/apps/zoltctl/zoltctl --config build/release/zoltconf.xml cards    lists the cards
  $client localhost $caePort    type  REBOOT:E   and see  RBT:0xE:OK  there, the LCD card reboot here
  $client localhost $ioPort    type  a5b1dFB    and see the frame 10 05 02 FF FB here
  $client localhost $monPort    with the one above still open: type  press 3 6  here and see  a3b0d40  in both
END
    fi
    cat <<END
Type  help  here for the simulated bus's controls. Ctrl-C stops everything.

END
}

# waitFor TEST...: true when the test holds within ten seconds.
waitFor() {
    tries=100
    until "$@"; do
        tries=$((tries - 1))
        [ "$tries" -gt 0 ] || return 1
        sleep 0.1
    done
}

isGone() { ! kill -0 "$1" 2>/dev/null; }

adapterIsThere() { [ -e /dev/ttyUSB0 ]; }
simulatorHasDecided() { adapterIsThere || isGone "$simulator"; }

stopAll() {
    trap '' INT TERM HUP
    rm -f "$copy"
    # A stop may come while zolt is still on its way into the background.
    if [ -n "$started" ] && [ -z "$daemon" ] && waitFor test -s "$pidFile"; then
        daemon=$(cat "$pidFile")
    fi
    if [ -n "$daemon" ] && ! isGone "$daemon"; then
        kill -TERM "$daemon"
        waitFor isGone "$daemon" || kill -KILL "$daemon"
        sleep 0.3 # the log's last lines are still on their way to the screen
    fi
    for process in $napper $follower $simulator; do
        kill -TERM "$process" 2>/dev/null || true
        wait "$process" 2>/dev/null || true
    done
}

runInside() {
    daemon='' started='' napper='' follower='' simulator=''
    pidFile=/run/zolt/zolt.pid
    trap stopAll EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM HUP
    # A simulator in the background then gets no terminal input, but is not stopped.
    trap '' TTIN

    writeConfiguration
    # The simulator runs in the background, where Ctrl-C does not reach it, with the terminal as
    # input: by default the shell gives background programs an empty one.
    exec 3<&0
    "$build/apps/zolt-sim/zolt-sim" --bus "$bus" --link /dev/ttyUSB0 --trace commands <&3 3<&- &
    simulator=$!
    exec 3<&-
    if ! waitFor simulatorHasDecided || ! adapterIsThere; then
        fail "the simulated bus did not start"
    fi

    : >/run/zolt/zolt.log
    tail -n +1 -F /run/zolt/zolt.log 2>/dev/null &
    follower=$!
    explain
    started=1
    "$build/src/zolt" 9<&-
    if ! waitFor test -s "$pidFile"; then
        started=''
        fail "zolt did not start"
    fi
    daemon=$(cat "$pidFile")

    while ! isGone "$daemon"; do
        if isGone "$simulator"; then
            fail "the simulated bus has ended"
        fi
        sleep 1 &
        napper=$!
        wait "$napper" || true
    done
    fail "zolt has ended"
}

# ---- outside -------------------------------------------------------------------

portInUse() {
    pattern=$(printf '^ *[0-9]+: [0-9A-F]+:%04X [0-9A-F]+:0000 0A ' "$1")
    cat /proc/net/tcp /proc/net/tcp6 2>/dev/null | grep -qE "$pattern"
}

checkPorts() {
    for port in "$caePort" "$ioPort" "$monPort"; do
        case "$port" in
            '' | *[!0-9]* | 0* | ??????*) fail "\"$port\" is not a port; --ports takes three, as in 4001,4002,4003" ;;
        esac
        if [ "$port" -lt 1025 ] || [ "$port" -gt 65535 ]; then
            fail "port $port is not between 1025 and 65535"
        fi
        if portInUse "$port"; then
            fail "port $port is in use by another program (--ports chooses others)"
        fi
    done
    if [ "$caePort" = "$ioPort" ] || [ "$caePort" = "$monPort" ] || [ "$ioPort" = "$monPort" ]; then
        fail "the three ports have to differ"
    fi
}

bus='' ports=4001,4002,4003 lineEnd='\n' client=nc inside=''
while [ $# -gt 0 ]; do
    case "$1" in
        --help)
            usage
            exit 0
            ;;
        --bus | --ports)
            [ $# -ge 2 ] || fail "$1 needs a value (see --help)"
            case "$1" in
                --bus) bus=$2 ;;
                --ports) ports=$2 ;;
            esac
            shift 2
            ;;
        --telnet)
            lineEnd='\r\n' client=telnet
            shift
            ;;
        --inside)
            inside=1
            shift
            ;;
        *) fail "unknown option $1 (--help lists them)" ;;
    esac
done

root=$(cd "$(dirname "$0")" && pwd)
build=$root/build/release
copy=$build/zoltconf.xml
allKinds=$root/apps/zolt-sim/buses/all-kinds.bus
bus=${bus:-$allKinds}
caePort=${ports%%,*}
monPort=${ports##*,}
ioPort=${ports#*,}
ioPort=${ioPort%,*}

if [ -n "$inside" ]; then
    runInside
fi

case "$ports" in
    *,*,*,* | *,,* | ,* | *,) fail "--ports takes three ports, as in 4001,4002,4003" ;;
    *,*,*) ;;
    *) fail "--ports takes three ports, as in 4001,4002,4003" ;;
esac
[ -r "$bus" ] || fail "cannot read the bus file $bus"
bus=$(cd "$(dirname "$bus")" && pwd -P)/$(basename "$bus")
case "$bus" in
    /etc/* | /run/* | /dev/* | /proc/*)
        fail "the bus file cannot be below /etc, /run or /dev: zolt runs in views of its own of these"
        ;;
esac

# Held until this process ends; a directory can carry the lock, so no file stays.
mkdir -p "$build"
exec 9<"$build"
flock -n 9 || fail "it is already running from this folder; stop it with Ctrl-C there"
checkPorts

cd "$root"
tools/install-packages --build
echo "Building; the first time it takes some minutes"
if ! { cmake --preset release && cmake --build --preset release \
    --target zolt zolt-sim zoltctl; } >"$build/build.log" 2>&1; then
    cat "$build/build.log" >&2
    fail "the build failed"
fi
telnet=''
[ "$client" = nc ] || telnet=--telnet
exec tools/private-view "$root/run.sh" --inside --bus "$bus" --ports "$ports" $telnet
