# shellcheck shell=sh
# Boots the Debian in $tree: its systemd is process 1 of namespaces of its own and
# has a control group of its own below the one that this script runs in.
# shellcheck disable=SC2154 # here, work and tree are set by the script that reads this

groups=$(findmnt -n -t cgroup2 -o TARGET | head -n 1)
group=

canBoot() {
    [ -n "$groups" ] || return 1
    group=$(mktemp -d "$groups$(sed -n 's/^0:://p' /proc/self/cgroup)/zolt-test.XXXXXX" 2>/dev/null)
}

boot() {
    trap shutDown EXIT
    # shellcheck disable=SC2016
    unshare --pid --mount --net --ipc --uts --fork --kill-child sh -c '
        echo 0 >"$1/cgroup.procs"
        exec unshare --cgroup sh "$2/process-1.sh" "$3"' \
        - "$group" "$here" "$tree" >"$work/console" 2>&1 </dev/null &
    runner=$!
    waitFor 60 isBooted || fail "it does not boot: $(cat "$work/console")"
}

isBooted() {
    # The only child, which is process 1 inside.
    init=$(cat "/proc/$runner/task/$runner/children") && [ -n "$init" ] &&
        booted systemctl is-active -q multi-user.target 2>/dev/null
}

# booted COMMAND...: runs the command in the booted Debian, as root.
booted() {
    # $init is a number and a blank.
    # shellcheck disable=SC2086
    nsenter --target $init --mount --pid --net --ipc --uts --cgroup --root --wd \
        env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"
}

# The end of process 1 ends all processes inside; a group can be removed when it is empty.
shutDown() {
    status=$?
    set +e
    [ "$status" -eq 0 ] || booted journalctl -b -q --no-pager -u zolt -n 30 >&2
    kill -KILL "$runner" 2>/dev/null
    wait "$runner" 2>/dev/null
    waitFor 20 removeGroups || echo "the control group $group could not be removed" >&2
}

removeGroups() {
    find "$group" -depth -type d -exec rmdir {} + 2>/dev/null
    [ ! -e "$group" ]
}
