#!/bin/sh
# process-1.sh TREE: becomes the tree's systemd. The script runs as process 1 of
# new namespaces, and its mounts are seen there alone.
set -eu
tree=$1
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=tests/packaging/common.sh
. "$here/common.sh"

mount --make-rprivate /
# Services change how their root is mounted, so it has to be a mount.
mount --rbind "$tree" "$tree"
mountSystem
mount -t sysfs -o ro sysfs "$tree/sys"
mount -t cgroup2 cgroup2 "$tree/sys/fs/cgroup"
mount -t tmpfs -o mode=755 tmpfs "$tree/run"
ip link set lo up
# chroot will not do: the kernel lets no process in a chroot make a user namespace,
# and services make some.
cd "$tree"
pivot_root . .
umount -l .
# "container" tells systemd that devices, modules and the clock are not its own.
exec env -i container=zolt-test PATH=/usr/sbin:/usr/bin:/sbin:/bin \
    chroot . /lib/systemd/systemd --log-target=journal
