#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the pictures of the help and of README.md with the built program, on a virtual display inside a throw-away
# system where it can publish. Needs root.
#   scripts/pictures.sh BUILD [LANGUAGE...]   writes data/help/LANGUAGE/pictures, and docs/screenshots in English
set -euo pipefail
top=$(dirname "$(dirname "$(readlink -f "$0")")")
. "$top/scripts/functions.sh"

die() {
    say "FAILED: $*" >&2
    [ -z "${pictures-}" ] || import -window root "$pictures/failure.png" || true
    exit 1
}

outside() {
    local build=$1
    shift
    # shellcheck source=scripts/packages.sh
    . "$top/scripts/packages.sh"
    need xvfb xauth openbox xdotool imagemagick fonts-dejavu-core pngquant "${packages_run[@]}" "${packages_test[@]}"
    [ $# -gt 0 ] || set -- en de ru
    # Each language in a system and a process of its own.
    for language; do
        "$top/scripts/pictures.sh" --language "$build" "$language"
    done
}

in_language() {
    local build=$1 language=$2 box place
    say "Language: $language"
    box=$(mktemp -d /tmp/vpXXXXXX)
    # shellcheck disable=SC2064
    trap "rm -rf -- '$box'" EXIT
    coproc "$top/tests/e2e/systemdbox" boot "$box"
    read -r -u "${COPROC[0]}" || die "no box"
    DESTDIR=$box/shared/stage cmake --install "$build" >/dev/null
    mkdir "$box/shared/pictures"
    mkdir "$box/shared/scripts"
    cp "$top"/scripts/{pictures,functions}.sh "$box/shared/scripts/"
    cp "$top/translations/velt-admin-repo_$language.ts" "$box/shared/texts.ts"
    local code=0
    "$top/tests/e2e/systemdbox" run "$box" bash /shared/scripts/pictures.sh --prepare "$language" || code=$?
    eval "exec ${COPROC[1]}>&-"
    wait "$COPROC_PID" || true
    if [ "$code" -ne 0 ]; then
        mkdir -p "$build/pictures"
        cp "$box"/shared/pictures/*.png "$build/pictures/" 2>/dev/null || true
        die "what was there is in $build/pictures"
    fi
    (cd "$box/shared/pictures" && pngquant --force --ext .png --speed 1 64 ./*.png)
    place=$top/data/help/$language/pictures
    mkdir -p "$place"
    rm -f -- "$place"/*.png
    if [ "$language" = en ]; then
        for name in window new-repository dependences publication dark; do
            cp -- "$box/shared/pictures/$name.png" "$top/docs/screenshots/"
        done
    fi
    rm -- "$box/shared/pictures/dark.png"
    mv -- "$box"/shared/pictures/*.png "$place/"
    du -sh "$place"
}

prepare() {
    cp -r --preserve=mode,links /shared/stage/. /
    systemctl daemon-reload
    systemctl reload dbus
    rm -f /etc/vsftpd.conf
    useradd -m anna
    echo 'polkit.addRule(function(action, subject) { return polkit.Result.YES; });' >/etc/polkit-1/rules.d/10-pictures.rules
    systemctl restart polkit
    # apt has the lists of this machine; only its usual sources are shown.
    find /etc/apt/sources.list.d -type f ! -name 'debian.sources' -delete
    mkdir -p /srv/packages/{first,newer,changed} /srv/repos
    cd /srv/packages
    package first backup-agent 2.4.1-1 amd64 admin 'rsync, report-client (>= 1.8), cloud-uploader' 'backs up a workstation every night
 Files that have changed are copied to the server of the department,
 encrypted with the key of the workstation.
 .
 A report is sent by mail when a backup fails.'
    package first report-client 1.8-2 amd64 net 'curl | wget' 'sends reports to the report server'
    package first report-server 1.8-2 amd64 net 'report-client (= 1.8-2), python3' 'collects the reports of workstations'
    package first scanner-firmware 1.12-1 amd64 contrib/utils '' 'firmware for the scanners in the offices'
    package first vpn-config 3.0-1 amd64 net 'openvpn' 'settings for the network from outside'
    package first letter-templates 2026.1 amd64 text 'libreoffice-writer' 'templates for letters and faxes'
    package newer backup-agent 2.5.0-1 amd64 admin 'rsync, cloud-uploader' 'backs up a workstation every night'
    package newer report-client 1.9-1 amd64 net 'curl' 'sends reports to the report server'
    package changed vpn-config 3.0-1 amd64 net 'openvpn, resolvconf' 'settings for the network from outside'
    (cd newer && dpkg-scanpackages . 2>/dev/null >Packages)
    chown -R anna: /srv/packages /srv/repos
    mkdir -p /run/user/anna && chown anna: /run/user/anna && chmod 700 /run/user/anna
    chown -R anna: /shared/pictures
    runuser -u anna -- env HOME=/home/anna XDG_RUNTIME_DIR=/run/user/anna LC_ALL=C.UTF-8 LANGUAGE="$1" \
        QT_QPA_PLATFORM=xcb xvfb-run -a -s "-screen 0 1280x900x24" bash /shared/scripts/pictures.sh --take
}

# The title of a window in the program's language.
title() {
    local text
    text=$(xmllint --xpath "string(//message[source='$1'][1]/translation)" /shared/texts.ts)
    say "${text:-$1}"
}
window_of() { xdotool search --onlyvisible --name "$(title "$1")" | tail -n 1; }
# focus TITLE: waits for the window with this title and gives it the keyboard focus.
focus() {
    until_true 30 xdotool search --onlyvisible --name "$(title "$1")" || die "no window \"$1\""
    xdotool windowactivate --sync "$(window_of "$1")"
    sleep 0.3
}
# click X Y [BUTTON]: clicks in the main window.
click() { xdotool mousemove --window "$main" "$1" "$2" click "${3-1}" && sleep 0.3; }
# Shows the next tab of the page on the right with the wheel, because this does not depend on the names of the tabs.
next_page() { click 360 119 5; }
previous_page() { click 360 119 4; }
# picture NAME TITLE: takes a picture of the window with this title; moves the pointer away first.
picture() {
    xdotool mousemove 1270 890
    sleep 0.5
    import -window "$(window_of "$2")" "$pictures/$1.png"
}
# menu NUMBER DOWN: chooses an entry by the positions of the menu and of the entry. Both count from 0, or mean the last
# entry. Shortcut letters differ between languages.
menu() {
    click 15 10
    local i
    for ((i = 0; i < $1; i++)); do keys Right; done
    for ((i = 0; i < ${2/last/0}; i++)); do keys Down; done
    [ "$2" != last ] || keys Up
    keys Return
}

start() {
    velt-admin-repo >>"$log" 2>&1 &
    application=$!
    focus "velt-admin-repo"
    main=$(window_of "velt-admin-repo")
    xdotool windowsize --sync "$main" 840 548 || true
    xdotool windowmove --sync "$main" 200 150 || true
    sleep 1
}
finish() {
    focus "velt-admin-repo"
    keys ctrl+q
    wait "$application" || die "the program ended with $?"
}

take() {
    pictures=/shared/pictures log=/tmp/pictures.log
    repo=/srv/repos/dogwood-repo
    index=$repo/dists/dogwood/main/binary-amd64/Packages
    eval "$(dbus-launch --sh-syntax 2>/dev/null || true)"
    openbox >/dev/null 2>&1 &
    gpg --batch --quiet --passphrase '' --quick-generate-key 'Dogwood Packages <packages@example.org>' rsa3072 sign 2y
    local key
    key=$(gpg --list-secret-keys --with-colons | awk -F: '$1 == "sec" { print substr($5, 9) }')
    mkdir -p ~/.config/corvana
    printf '%s\n' '[General]' "signKeyID=$key" 'busyHttpPorts=8000' \
        '[Published8000]' "repoPath=$repo" 'type=0' 'ip=192.168.0.10' 'arch=amd64' 'trustedRepo=false' \
        '[EnabledRepos]' 'repo1="[trusted=yes] file:/srv/packages/newer ./"' \
        >~/.config/corvana/velt-admin-repo.conf
    start

    say "New repository"
    keys ctrl+n
    focus "Repository creation"
    sleep 1
    write /srv/repos
    keys Tab Tab ctrl+a
    write dogwood-repo
    keys Tab ctrl+a
    write dogwood
    picture new-repository "Repository creation"
    keys Return
    until_true 30 test -s "$repo/dists/dogwood/Release" || die "no repository"
    sleep 1

    say "Adding"
    velt-admin-repo /srv/packages/first/*.deb || true
    focus "Package add settings"
    picture add-settings "Package add settings"
    keys Return
    until_true 60 grep -q "Package: vpn-config" "$index" || die "not added"
    sleep 3
    menu 4 1
    sleep 1
    pick_package backup-agent
    picture log velt-admin-repo
    menu 4 1
    sleep 1
    # The small tree had scrolled to the selected row.
    xdotool mousemove --window "$main" 150 300 click --repeat 9 4
    picture window velt-admin-repo

    say "Dependencies"
    next_page
    picture dependences velt-admin-repo

    say "Complete check"
    menu 1 6
    sleep 6
    next_page
    sleep 4
    picture installability velt-admin-repo
    previous_page

    say "Replacing"
    velt-admin-repo /srv/packages/first/{report-client,report-server,vpn-config}*.deb || true
    focus "Package add settings"
    keys Return
    focus "Package replacement"
    picture replacement "Package replacement"
    keys Escape
    sleep 2
    for _ in 1 2 3; do
        until_true 1 xdotool search --onlyvisible --name "$(title "Package replacement")" && keys Escape
        sleep 1
    done

    say "Settings"
    focus velt-admin-repo
    menu 3 2
    focus "Parametrs"
    sleep 3
    picture parameters "Parametrs"
    keys Escape
    focus velt-admin-repo
    menu 3 0
    focus "Edit external repos"
    sleep 4
    picture external-repos "Edit external repos"
    keys Escape

    say "Search"
    focus velt-admin-repo
    menu 1 0
    focus "Add package from external repo"
    write openvpn
    sleep 8
    picture external "Add package from external repo"
    keys Escape

    say "Upgrade"
    focus velt-admin-repo
    menu 1 3
    focus "Select sources to upgrade"
    sleep 4
    picture upgrade-sources "Select sources to upgrade"
    keys End space Return
    focus "Choose packages to upgrade"
    picture upgrade-packages "Choose packages to upgrade"
    keys Escape

    say "Preview"
    velt-admin-repo /srv/packages/{newer,changed}/*.deb || true
    focus "Package add settings"
    keys Return
    focus "Preview"
    sleep 8
    # The manual takes no wider pictures.
    xdotool windowsize --sync "$(window_of "Preview")" 836 620 || true
    sleep 1
    picture preview "Preview"
    # The last row has another file of the same version; the button is before the rows.
    keys End
    keys shift+Tab
    keys space
    focus "Difference"
    sleep 2
    picture difference "Difference"
    keys Escape
    focus "Preview"
    keys Return
    until_true 60 grep -q "Version: 2.5.0-1" "$index" || die "not replaced"
    sleep 3

    say "History"
    focus velt-admin-repo
    xdotool windowsize --sync "$main" 840 640 || true
    keys ctrl+h
    sleep 2
    keys Home
    keys Right
    sleep 1
    picture history velt-admin-repo
    menu 3 last
    focus "History"
    picture history-settings "History"
    keys Escape
    focus velt-admin-repo
    keys ctrl+z
    focus "Preview"
    sleep 8
    keys Return
    until_true 60 grep -q "Version: 2.4.1-1" "$index" || die "not undone"
    sleep 3
    focus velt-admin-repo
    keys ctrl+h
    xdotool windowsize --sync "$main" 840 548 || true
    sleep 1

    say "Publishing"
    focus velt-admin-repo
    click 150 168
    next_page
    menu 2 0
    until_true 30 systemctl is-active public-repo-8000 || die "not published"
    sleep 3
    curl -sf http://127.0.0.1:8000/dists/dogwood/Release >/dev/null || die "not served"
    picture publication velt-admin-repo
    menu 2 last
    focus "Published repositories"
    sleep 8
    picture published "Published repositories"
    keys Escape
    finish

    say "Dark colours"
    dark_desktop
    start
    pick_package backup-agent
    picture dark velt-admin-repo
    finish
}

# Sets dark colours, which Qt reads from a file.
dark_desktop() {
    local part
    for part in Window View Button; do
        printf '[Colors:%s]\nBackgroundNormal=%s\nForegroundNormal=239,240,241\n' "$part" 35,38,41
    done >~/.config/kdeglobals
    printf '%s\n' '[Colors:Selection]' BackgroundNormal=20,96,138 ForegroundNormal=252,252,252 \
        '[General]' 'font=DejaVu Sans,9,-1,5,50,0,0,0,0,0' '[KDE]' widgetStyle=Fusion '[Icons]' Theme=breeze-dark \
        >>~/.config/kdeglobals
    export XDG_CURRENT_DESKTOP=KDE KDE_FULL_SESSION=true KDE_SESSION_VERSION=5
}

# pick_package NAME: selects the package in the tree by typing its name, starting at the first row.
pick_package() {
    focus velt-admin-repo
    click 150 168
    keys asterisk
    sleep 1
    write "$1"
    sleep 1
}

case "${1-}" in
    --language) in_language "$2" "$3" ;;
    --prepare) prepare "$2" ;;
    --take) take ;;
    *) outside "${1:?usage: $0 BUILD [LANGUAGE...]}" "${@:2}" ;;
esac
