#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Shows the program's main job on a virtual display, only through its window: creates a repository, adds packages,
# replaces one, removes one, and checks with apt that a client can use the repository.
#   scripts/demo.sh PROGRAM     leaves repository, packages and pictures in demo/
set -euo pipefail
top=$(dirname "$(dirname "$(readlink -f "$0")")")
demo=$top/demo
. "$top/scripts/functions.sh"

if [ "${2-}" != --on-display ]; then
    . "$top/scripts/packages.sh"
    need xvfb xauth openbox xdotool imagemagick fonts-dejavu-core "${packages_run[@]}"
    exec xvfb-run -a -s "-screen 0 1280x800x24" "$0" "${1:?usage: $0 PROGRAM}" --on-display
fi
program=$1

die() {
    say "FAILED: $*" >&2
    picture failure || true
    exit 1
}
picture() { import -window root "$demo/pictures/$1.png"; }

# focus TITLE: waits for the window with this title and gives it the keyboard focus.
focus() {
    until_true 20 xdotool search --onlyvisible --name "$1" || die "no window \"$1\""
    xdotool search --onlyvisible --name "$1" windowactivate --sync
}

# press KEYS TITLE: opens a window with a shortcut, which has no effect before the last job has ended.
press() {
    for _ in {1..10}; do
        keys "$1"
        if until_true 2 xdotool search --onlyvisible --name "$2"; then
            focus "$2"
            return 0
        fi
    done
    die "no window \"$2\""
}

rm -rf -- "$demo"
mkdir -p "$demo"/{packages,pictures,repositories,home}
runtime=$(mktemp -d)
export HOME=$demo/home XDG_CONFIG_HOME=$demo/home/.config XDG_CACHE_HOME=$demo/home/.cache XDG_RUNTIME_DIR=$runtime
export QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8
arch=$(dpkg --print-architecture)
repo=$demo/repositories/demo-repo
index=$repo/dists/dogwood/main/binary-$arch/Packages
indexed() { grep -qx "Package: $1" "$index" && grep -qx "Version: $2" "$index"; }
unindexed() { [ -s "$index" ] && ! grep -qx "Package: $1" "$index"; }

jobs=()
finish() {
    for job in "${jobs[@]}"; do kill "$job" 2>/dev/null || true; done
    rm -rf -- "$runtime"
}
trap finish EXIT

openbox >/dev/null 2>&1 &
jobs+=($!)
about='package of the demonstration
 It holds one file.'
demo_package() { package "$demo/packages" "$1" "$2" "$3" utils "${4-}" "$about"; }
demo_package hello "1.0" "$arch" "hello-data (>= 1.0)"
demo_package hello-data "1.0" all
demo_package goodbye "1.0" "$arch"
demo_package hello "1.1" "$arch" "hello-data (>= 1.0)"
# An installer package differs only in its file name.
demo_package hello-installer "1.0" "$arch"
mv -- "$demo/packages/hello-installer_1.0_$arch".{deb,udeb}

say "Fetching packages from the system's sources"
mkdir "$demo/fetched"
(cd "$demo/fetched" && apt-get -qq -o APT::Sandbox::User="" download cowsay figlet sl) ||
    say "apt cannot fetch packages here; going on with those built on the spot"
fetched=("$demo/fetched"/*.deb)
[ -e "${fetched[0]}" ] || fetched=()

say "Starting the program"
"$program" &
application=$!
jobs+=("$application")
focus "velt-admin-repo"

say "Creating a repository"
keys ctrl+n
focus "Repository creation"
# The system's proposals arrive later and would otherwise mix with the typed text.
sleep 1
write "$demo/repositories"
keys Tab Tab ctrl+a
write "demo-repo"
keys Tab ctrl+a
write "dogwood"
picture 1-new-repository
keys Return
until_true 20 test -s "$repo/dists/dogwood/Release" || die "the repository was not created"

say "Adding packages"
hand_over() {
    local code=0
    "$program" "$@" || code=$?
    [ "$code" -eq 255 ] || die "the second start ended with $code"
    focus "Package add settings"
    keys Return
}
hand_over "$demo/packages/hello_1.0_$arch.deb" "$demo/packages/hello-data_1.0_all.deb" \
    "$demo/packages/goodbye_1.0_$arch.deb" "$demo/packages/hello-installer_1.0_$arch.udeb"
for name in hello hello-data goodbye; do
    until_true 20 indexed "$name" 1.0 || die "$name is not in the index"
done
grep -qx "Package: hello-installer" "${index/binary/debian-installer/binary}" || die "the .udeb is not in its index"
if [ ${#fetched[@]} -gt 0 ]; then
    press ctrl+a "Adding Packages"
    write "$(printf '"%s" ' "${fetched[@]}")"
    keys Return
    focus "Package add settings"
    keys Return
    for file in "${fetched[@]}"; do
        name=$(dpkg-deb -f "$file" Package)
        until_true 20 indexed "$name" "$(dpkg-deb -f "$file" Version)" || die "$name is not in the index"
    done
fi
sleep 1
picture 2-packages-added

say "Replacing a package by a newer one"
hand_over "$demo/packages/hello_1.1_$arch.deb"
focus "Package replacement"
picture 3-replacement
keys alt+y
until_true 20 indexed hello 1.1 || die "the newer package is not in the index"
sleep 1

say "Removing a package"
# From the tree to the search line, and on to the package that it has found.
focus "velt-admin-repo"
keys shift+Tab
write "goodbye"
sleep 1
keys Down
write "goodbye"
sleep 0.5
picture 4-package-selected
press ctrl+d "Remove confirmation"
picture 5-remove-confirmation
keys alt+y
until_true 20 unindexed goodbye || die "the package is still in the index"
focus "velt-admin-repo"
keys shift+Tab ctrl+a BackSpace
sleep 1
picture 6-package-removed

say "Ending the program"
keys ctrl+q
code=0
wait "$application" || code=$?
[ "$code" -eq 0 ] || die "the program ended with $code"

say "Using the repository with apt"
client=$demo/client
mkdir -p "$client"/{etc/apt.conf.d,etc/preferences.d,state/lists/partial,cache/archives/partial}
touch "$client/state/status"
echo "deb [trusted=yes] file:$repo dogwood main" >"$client/etc/sources.list"
cat >"$client/apt.conf" <<CONFIGURATION
Dir::Etc "$client/etc";
Dir::State "$client/state";
Dir::State::status "$client/state/status";
Dir::Cache "$client/cache";
APT::Sandbox::User "";
CONFIGURATION
export APT_CONFIG=$client/apt.conf
apt-get -qq update || die "apt does not read the repository"
# "--simulate" is not enough, because it does not read the files.
apt-get -qq --simulate install hello >"$client/plan" || die "apt cannot install hello"
grep -q "^Inst hello-data " "$client/plan" || die "apt does not find the dependency"
(cd "$client" && apt-get -qq download hello) || die "apt cannot fetch hello"
cmp -s "$client/hello_1.1_$arch.deb" "$demo/packages/hello_1.1_$arch.deb" || die "apt got another file"
for file in "${fetched[@]}"; do
    (cd "$client" && apt-get -qq download "$(dpkg-deb -f "$file" Package)") || die "apt cannot fetch $file"
    cmp -s "$client/${file##*/}" "$file" || die "apt got another file than $file"
done
! apt-cache show goodbye >/dev/null 2>&1 || die "apt still knows the removed package"

say "Done: the repository is $repo, the pictures are in $demo/pictures."
