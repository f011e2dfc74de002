#!/bin/sh
# lifecycle.sh PACKAGES CACHE: the packages on a minimal Debian 12 from their
# installation to their purge. tools/check-package runs it.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=tests/packaging/common.sh
. "$here/common.sh"
begin "$1" "$2"

config=$tree/etc/zolt/zoltconf.xml
log=$tree/var/log/zolt/zolt.log

isThere() { [ -e "$tree$1" ] || fail "$1 is not there"; }
isGone() { [ ! -e "$tree$1" ] || fail "$1 is still there"; }

# Lists every file except the records of dpkg and apt, and except what adduser writes
# besides the files that exist anyway.
listFiles() {
    inTree find / -xdev \( -path /proc -o -path /dev -o -path /packages -o -path /tmp \
        -o -path /var/cache -o -path /var/lib/apt -o -path /var/lib/dpkg \
        -o -path /var/log/apt -o -path /var/log/dpkg.log -o -path /run/adduser \
        -o -path '/etc/*shadow-' \) -prune -o -print | sort
}

# shellcheck disable=SC2016
installedVersion() { inTree dpkg-query -W -f '${Version}' zolt; }

upgrade() {
    quietly inTree apt-get -y -o Dpkg::Options::=--force-confdef install /packages/zolt-next.deb
    installedVersion | grep -q '+next$' || fail "it was not upgraded"
}

step "making a minimal Debian 12"
makeTree minimal
mountSystem
bringPackages
makeNextVersion
listFiles >"$work/before"

step "installing the three packages: nothing is started in a tree without an init"
install /packages/zolt.deb /packages/zolt-sim.deb /packages/zolt-tools.deb
isGone /run/zolt/zolt.pid
while read -r file; do
    isThere "$file"
done <"$here/installed-files"

step "the documents link to what is there"
grep -ho ']([^)#]*' "$tree"/usr/share/doc/zolt/*.md | cut -c 3- | sort -u >"$work/links"
while read -r link; do
    isThere "/usr/share/doc/zolt/$link"
done <"$work/links"

step "the programs run, and the configuration check finds nothing to say"
version=$(installedVersion)
for program in zolt-check zolt-sim zoltctl; do
    inTree "$program" --version | grep -qF "$version" ||
        fail "$program --version does not say $version"
done
inTree setpriv --reuid zolt --regid zolt --clear-groups zolt-check >"$work/check" ||
    fail "zolt-check says: $(cat "$work/check")"

step "the daemon runs as its user on a simulated bus, and zoltctl reaches a card"
mount --bind "$here" "$tree/mnt"
# shellcheck disable=SC2016
unshare --net sh -c 'ip link set lo up && exec chroot "$0" bash /mnt/first-session.sh' "$tree" ||
    fail "the session above"
umount "$tree/mnt"

step "upgrading keeps a changed configuration"
sed -i 's/Percent="50"/Percent="60"/' "$config"
upgrade
grep -q 'Percent="60"' "$config" || fail "the change is gone"
[ -e "$config.dpkg-dist" ] || fail "the new sample is not beside it"

step "removing keeps the configuration and the log"
quietly inTree apt-get -y remove zolt
isGone /usr/sbin/zolt
grep -q 'Percent="60"' "$config" || fail "the changed configuration is gone"
[ -s "$log" ] || fail "the log is gone"

step "purging removes both"
quietly inTree apt-get -y purge zolt
isGone /etc/zolt
isGone /var/log/zolt

step "installing again and upgrading replaces an unchanged configuration"
install /packages/zolt.deb
inTree dpkg --verify zolt | grep . && fail "files differ from the package's"
upgrade
grep -q 'next' "$config" || fail "the old sample is still there"

step "purging all leaves no file behind"
quietly inTree apt-get -y purge zolt zolt-sim zolt-tools
quietly inTree apt-get -y autoremove --purge
listFiles >"$work/after"
diff "$work/before" "$work/after" || fail "the lists of files before and after differ"
