#!/bin/sh
# service.sh PACKAGES CACHE: the service under a systemd of its own, in a Debian
# 12 without a network but its loopback. tools/check-package runs it.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=tests/packaging/common.sh
. "$here/common.sh"
begin "$1" "$2"

# shellcheck source=tests/packaging/booted.sh
. "$here/booted.sh"

config=$tree/etc/zolt/zoltconf.xml
log=$tree/var/log/zolt/zolt.log
dropIns=$tree/etc/systemd/system/zolt.service.d

property() { booted systemctl show -p "$1" --value zolt; }
isState() { [ "$(property ActiveState)" = "$1" ]; }
logSays() { grep -q -- "$1" "$log"; }
journalSays() { booted journalctl -b -q -o cat -u zolt | grep -q -- "$1"; }

# limit FILE PROPERTY: the limit of the service's control group in the kernel, or what
# systemd would set where this machine gives the group no such controller.
limit() {
    booted cat "/sys/fs/cgroup/system.slice/zolt.service/$1" 2>/dev/null || property "$2"
}

ioListens() { booted grep -q ':0FA2 00000000:0000 0A' /proc/net/tcp; }

# answers ADDRESS: the IO port welcomes a client there within ten seconds.
answers() {
    # shellcheck disable=SC2016
    booted timeout 10 bash -c 'until exec 3<>"/dev/tcp/$0/4002"; do sleep 0.2; done
        read -r line <&3 && [[ $line = "ZOLT IO interface is ready"* ]]' "$1" 2>/dev/null
}

restart() {
    booted systemctl daemon-reload
    booted systemctl reset-failed zolt
    quietly booted systemctl restart zolt
}

step "making a Debian 12 with systemd"
makeTree systemd systemd systemd-sysv udev logrotate
bringPackages
makeNextVersion
# The loaded packages of what zolt depends on; inside there is no network.
quietly inTree apt-get -y --no-install-recommends --download-only install \
    /packages/zolt.deb /packages/zolt-sim.deb /packages/zolt-tools.deb

step "booting it"
if ! canBoot; then
    step "skipped: this machine has no control groups for it (cgroup2)"
    exit 77
fi
boot

step "installing starts the service, as its user"
quietly booted apt-get -y --no-install-recommends install \
    /packages/zolt.deb /packages/zolt-sim.deb /packages/zolt-tools.deb
isState active || fail "the service is $(property ActiveState)"
booted systemctl is-enabled -q zolt || fail "the service is not enabled"
daemon=$(property MainPID)
[ "$(booted cat /run/zolt/zolt.pid)" = "$daemon" ] || fail "the PID file has another number"
[ "$(booted stat -c %U "/proc/$daemon")" = zolt ] || fail "it does not run as zolt"
booted cat "/proc/$daemon/status" >"$work/status"
for line in 'CapBnd:	0000000000000000' 'NoNewPrivs:	1' 'Seccomp:	2'; do
    grep -q "$line" "$work/status" || fail "its status has no $line"
done
[ "$(booted cut -d' ' -f19 "/proc/$daemon/stat")" = -10 ] || fail "its priority is not raised"
booted cat "/proc/$daemon/limits" | grep -q '^Max open files  *64  *64 ' ||
    fail "its open files are not limited"
[ "$(limit memory.max MemoryMax)" = 134217728 ] || fail "its memory is not limited"
[ "$(limit pids.max TasksMax)" = 16 ] || fail "its tasks are not limited"

step "a device that the unit does not name is refused"
# Any device that can be opened and has nothing to do with terminals.
booted mknod -m 0666 /dev/ttyUSB0 c 10 229
waitFor 20 logSays 'unable to  open /dev/ttyUSB0' || fail "the device was not refused"
mkdir -p "$dropIns"
printf '[Service]\nDeviceAllow=char-misc rw\n' >"$dropIns/device.conf"
restart
waitFor 20 logSays 'error 25 from tcsetattr' || fail "a device that is named was not opened"
booted rm /dev/ttyUSB0
rm "$dropIns/device.conf"

step "it finds the simulated bus and answers on its ports; no system call is refused"
# The installed unit makes a refused system call an error like others; here the call kills.
printf '[Service]\nSystemCallErrorNumber=\n' >"$dropIns/strict.conf"
booted systemd-run -q --unit=zolt-sim zolt-sim --bus /usr/share/zolt-sim/buses/all-kinds.bus \
    --link /dev/ttyUSB0 --trace none --trace-file /tmp/trace
waitFor 20 booted test -e /dev/ttyUSB0 || fail "the simulated bus did not start"
# The udev rule does this with an adapter.
# shellcheck disable=SC2016
booted sh -c 'adapter=$(readlink -f /dev/ttyUSB0); chgrp dialout $adapter; chmod 0660 $adapter'
restart
waitFor 20 logSays 'hardware found on /dev/ttyUSB0' || fail "the simulated adapter was not found"
answers 127.0.0.1 || fail "the IO port does not answer"

step "zoltctl reaches a card"
quietly booted zoltctl set 5 1 FB
waitFor 20 grep -q 'card 5 digital-output: FF FB' "$tree/tmp/trace" || fail "the card was not set"

step "other hosts reach the ports only with the drop-in"
# shellcheck disable=SC2086
nsenter --target $init --net ip address add 192.0.2.1/24 dev lo
waitFor 20 ioListens || fail "the IO port is not there"
# A port that listens is connected to at once, unless packets are dropped.
if booted timeout 3 bash -c ': >/dev/tcp/192.0.2.1/4002' 2>/dev/null; then
    fail "another address than the local host's was connected"
fi
cp "$tree/usr/share/doc/zolt/examples/open-to-network.conf" "$dropIns/"
restart
answers 192.0.2.1 || fail "the drop-in does not open the ports"

step "a daemon that is killed comes back"
daemon=$(property MainPID)
cameBack() { isState active && [ "$(property MainPID)" != "$daemon" ]; }
booted systemctl kill -s KILL zolt
waitFor 20 cameBack || fail "it did not come back"

step "logrotate takes the log away, and the daemon makes a new one"
quietly booted logrotate --debug /etc/logrotate.d/zolt
grep -qi error "$work/output" && fail "logrotate says: $(cat "$work/output")"
quietly booted logrotate --force /etc/logrotate.d/zolt
[ -s "$log.1" ] || fail "the log was not rotated"
restart
waitFor 20 logSays 'zolt is started' || fail "there is no new log"

step "an upgrade restarts it"
daemon=$(property MainPID)
quietly booted apt-get -y --no-install-recommends install /packages/zolt-next.deb
waitFor 20 cameBack || fail "the service is $(property ActiveState), and its process $(property MainPID)"
grep -q '<!-- next -->' "$config" || fail "the old sample is still there"

step "a wrong configuration is a failure that the journal explains"
cp "$config" "$work/good.xml"
sed -i 's/Port="4002"/Port="80"/' "$config"
if booted systemctl restart zolt 2>/dev/null; then
    fail "the service started"
fi
journalSays 'status=2' || fail "zolt-check did not end with status 2"
journalSays '^/etc/zolt/zoltconf.xml:[0-9:]*: error: Port 80 is below 1025' ||
    fail "the journal does not say what is wrong"
waitFor 60 isState failed || fail "the service is $(property ActiveState)"
cat "$work/good.xml" >"$config"
restart

step "stopping it leaves no PID file"
quietly booted systemctl stop zolt
isState inactive || fail "the service is $(property ActiveState)"
booted test ! -e /run/zolt || fail "/run/zolt is still there"

step "udev reads the rule without a complaint, and it sets group and mode"
udevTest() { booted udevadm test --action=add /sys/class/tty/tty0 >"$work/udev" 2>&1 || true; }
rule=$tree/lib/udev/rules.d/60-zolt.rules
udevTest
grep -q '60-zolt.rules' "$work/udev" || fail "udev did not read the rule"
grep '60-zolt.rules:' "$work/udev" && fail "udev complains"
# There is no adapter here; another terminal replaces it.
sed 's/ttyUSB\[0-9\]\*/tty0/' "$rule" >"$tree/etc/udev/rules.d/61-stand-in.rules"
udevTest
for word in 'GROUP 20' 'MODE 0660'; do
    grep -q "61-stand-in.rules:.* $word" "$work/udev" || fail "the rule does not set $word"
done
rm "$tree/etc/udev/rules.d/61-stand-in.rules"

step "removing stops it, purging leaves nothing of it"
quietly booted systemctl start zolt
quietly booted apt-get -y remove zolt
booted test ! -e /run/zolt || fail "it was not stopped"
quietly booted apt-get -y purge zolt
booted systemctl daemon-reload
# The files that this test has made stay, and so do the other two packages.
booted dpkg -L zolt-sim zolt-tools | sort >"$work/others"
booted find /etc /var /run /lib/systemd /usr -name '*zolt*' | sort | comm -23 - "$work/others" |
    grep -v -e '^/etc/systemd/system/zolt\.service\.d$' -e 'zolt-sim\.service$' \
        -e '^/var/lib/dpkg/info/zolt-\(sim\|tools\)\.' && fail "the files above are still there"
booted getent passwd zolt >"$work/user" || fail "the user is gone"
[ -e "$dropIns" ] || fail "the drop-in is gone"
