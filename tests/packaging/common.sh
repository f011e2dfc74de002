# shellcheck shell=sh
# For the scripts of this folder. They run as process 1 of namespaces of their
# own: their mounts and processes end with them, however they end.

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

step() { echo "  $*"; }

# waitFor SECONDS TEST...: true when the test holds in time.
waitFor() {
    tries=$(($1 * 10))
    shift
    until "$@"; do
        tries=$((tries - 1))
        [ "$tries" -gt 0 ] || return 1
        sleep 0.1
    done
}

# inTree COMMAND...: runs the command in the Debian tree, as its root.
inTree() {
    chroot "$tree" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive "$@"
}

# quietly COMMAND...: runs the command and shows its output only when it fails.
quietly() {
    "$@" >"$work/output" 2>&1 </dev/null || {
        cat "$work/output" >&2
        fail "$*"
    }
}

# makeTree NAME PACKAGE...: fills $tree with a minimal Debian 12 and the packages. It
# starts from what an earlier run has kept: the whole tree, or the minimal one.
makeTree() {
    name=$1
    shift
    if [ -e "$cache/$name.tar" ]; then
        tar -x -f "$cache/$name.tar" -C "$tree"
        mountArchives
        return
    fi
    if [ -e "$cache/minimal.tar" ]; then
        tar -x -f "$cache/minimal.tar" -C "$tree"
    else
        quietly debootstrap --variant=minbase bookworm "$tree"
        # The packages that came with debootstrap are not needed again.
        inTree apt-get clean
        keepTree minimal
    fi
    mountArchives
    if [ $# -gt 0 ]; then
        quietly inTree apt-get -y --no-install-recommends install "$@"
        umount "$tree/var/cache/apt/archives"
        keepTree "$name"
        mountArchives
    fi
}

keepTree() {
    tar -c -f "$cache/$1.tar.new" -C "$tree" .
    mv "$cache/$1.tar.new" "$cache/$1.tar"
}

# The packages that apt loads are kept for the next run.
mountArchives() {
    mkdir -p "$cache/archives/partial"
    mount --bind "$cache/archives" "$tree/var/cache/apt/archives"
}

# mountSystem: mounts what programs in the tree need of the kernel, for them alone.
mountSystem() {
    mount -t proc proc "$tree/proc"
    mount -t tmpfs -o mode=755 tmpfs "$tree/dev"
    for name in null zero full random urandom tty; do
        : >"$tree/dev/$name"
        mount --bind "/dev/$name" "$tree/dev/$name"
    done
    mkdir -m 1777 "$tree/dev/shm"
    mkdir "$tree/dev/pts"
    mount -t devpts -o newinstance,ptmxmode=0666,mode=0620 devpts "$tree/dev/pts"
    ln -s pts/ptmx "$tree/dev/ptmx"
    ln -s /proc/self/fd "$tree/dev/fd"
}

# begin PACKAGES CACHE: the folders that the functions above work with.
begin() {
    packages=$1 cache=$2
    trap 'exit 130' INT
    trap 'exit 143' TERM HUP
    mkdir -p "$cache"
    work=$cache/work
    mkdir -p "$work"
    mount --make-rprivate /
    mount -t tmpfs -o mode=755 tmpfs "$work"
    tree=$work/tree
    mkdir "$tree"
}

# packageFile NAME: the built package of that name.
packageFile() {
    for file in "$packages/$1"_*.deb; do
        [ -e "$file" ] || fail "there is no package $1 in $packages"
        echo "$file"
        return
    done
}

# bringPackages: puts the built packages into the tree's /packages.
bringPackages() {
    mkdir "$tree/packages"
    for name in zolt zolt-sim zolt-tools; do
        cp "$(packageFile $name)" "$tree/packages/$name.deb"
    done
}

# makeNextVersion: zolt with a higher version and another sample configuration,
# as /packages/zolt-next.deb.
makeNextVersion() {
    next=$work/next
    dpkg-deb -R "$tree/packages/zolt.deb" "$next"
    sed -i 's/^Version: .*/&+next/' "$next/DEBIAN/control"
    echo '<!-- next -->' >>"$next/etc/zolt/zoltconf.xml"
    (cd "$next" && find . -type f ! -path './DEBIAN/*' -printf '%P\0' | xargs -0 md5sum >DEBIAN/md5sums)
    quietly dpkg-deb -b --root-owner-group "$next" "$tree/packages/zolt-next.deb"
}

install() { quietly inTree apt-get -y --no-install-recommends install "$@"; }
