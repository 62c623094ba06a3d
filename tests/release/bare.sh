# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash
# Bare Debian systems to try things in. To be sourced.

# The codename of this system's release.
this_release() {
    # shellcheck source=/dev/null
    (. /etc/os-release && printf '%s\n' "$VERSION_CODENAME")
}

# debian_sources RELEASE: lines for sources.list, of the mirrors that this machine's apt knows.
debian_sources() {
    local release=$1 lines
    lines=$(apt-get indextargets --format "deb \$(REPO_URI) \$(RELEASE) \$(COMPONENT)" \
        'Created-By: Packages' 'Origin: Debian' 2>/dev/null \
        | sed -nE "s/^(deb [^ ]+ )$(this_release)(-updates|-security|) main\$/\1$release\2 main/p" | sort -u) || true
    printf '%s\n' "${lines:-deb http://deb.debian.org/debian $release main}"
}

# reachable RELEASE FILE: whether the mirror in this file of sources answers; it prints the mirror.
reachable() {
    local mirror answer=0 to
    read -r _ mirror _ <<<"$(grep " $1 " "$2")"
    to=$(mktemp)
    printf '%s\n' "$mirror"
    /usr/lib/apt/apt-helper -o Acquire::http::Timeout=20 -o Acquire::Retries=1 \
        download-file "${mirror%/}/dists/$1/InRelease" "$to" >/dev/null 2>&1 || answer=1
    rm -f -- "$to"
    return "$answer"
}

# make_bare RELEASE FOLDER SOURCES ARCHIVES: a system with nothing but what is essential, and apt. What lies in the
# folder ARCHIVES is not fetched; what is fetched comes there.
make_bare() {
    local release=$1 system=$2 sources=$3 archives=$4
    mmdebstrap --quiet --dpkgopt=force-unsafe-io --variant=minbase --format=directory --skip=download/empty,cleanup/apt \
        --setup-hook="mkdir -p \"\$1/var/cache/apt/archives\"
            mount --bind '$archives' \"\$1/var/cache/apt/archives\"" \
        "$release" "$system" "$sources"
    # Nobody's server starts when its package is installed.
    printf '#!/bin/sh\nexit 101\n' >"$system/usr/sbin/policy-rc.d"
    chmod 755 "$system/usr/sbin/policy-rc.d"
    cp -L /etc/resolv.conf "$system/etc/resolv.conf"
    apt-config dump | grep -E '^Acquire::[a-z]+::Proxy ' >"$system/etc/apt/apt.conf.d/90proxy" || true
}

# fill_dev FOLDER: the devices that an ordinary program needs, in the system's folder dev.
fill_dev() {
    local dev=$1 file major minor link
    mount -t tmpfs -o mode=755,nosuid tmpfs "$dev"
    while read -r file major minor; do
        mknod -m 666 "$dev/$file" c "$major" "$minor"
    done <<<"null 1 3
zero 1 5
full 1 7
random 1 8
urandom 1 9
tty 5 0
fuse 10 229"
    mkdir "$dev"/{pts,shm}
    mount -t devpts -o newinstance,ptmxmode=666,mode=620,gid=5 devpts "$dev/pts"
    ln -s pts/ptmx "$dev/ptmx"
    ln -s /proc/self/fd "$dev/fd"
    for link in 0:stdin 1:stdout 2:stderr; do
        ln -s "/proc/self/fd/${link%:*}" "$dev/${link#*:}"
    done
    mount -t tmpfs -o mode=1777,nosuid,nodev tmpfs "$dev/shm"
}

# copy_tree FROM TO: the project without its builds and its history.
copy_tree() {
    tar -C "$1" -c --exclude=./.git --exclude='./build*' --exclude=./demo . | tar -C "$2" -x
}
