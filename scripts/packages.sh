# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash disable=SC2034
# The Debian packages that the project needs, and a function that installs them. To be sourced.

# Debian 12 has Qt 5 with KDE Frameworks 5. Later releases have all parts of Qt 6 with KDE Frameworks 6.
# shellcheck source=/dev/null
if [ "$(. /etc/os-release && echo "${VERSION_CODENAME-}")" = bookworm ]; then
    packages_qt=(qtbase5-dev qttools5-dev qttools5-dev-tools libqca-qt5-2-dev libkf5archive-dev libkf5coreaddons-dev libkf5itemviews-dev)
    packages_release=(libqca-qt5-2-plugins libqt5svg5 qttranslations5-l10n)
    # Other versions of clang-format format otherwise.
    packages_format=(clang-format-14)
    packages_units=()
else
    packages_qt=(qt6-base-dev qt6-tools-dev qt6-l10n-tools libqca-qt6-dev libkf6archive-dev libkf6coreaddons-dev)
    # Here archivemount does not bring the program that unmounts.
    packages_release=(libqca-qt6-plugins qt6-svg-plugins qt6-translations-l10n fuse3)
    packages_format=()
    # Where units belong.
    packages_units=(systemd-dev)
fi
packages_build=(g++ cmake ninja-build "${packages_qt[@]}" zlib1g-dev libapt-pkg-dev libcadical-dev libsystemd-dev libxxhash-dev pkgconf po4a rapidjson-dev)
packages_run=(reprepro archivemount dpkg apt gnupg lsb-release "${packages_release[@]}" breeze-icon-theme hicolor-icon-theme)
packages_test=(dpkg-dev debsig-verify gpgv shellcheck xvfb xauth openbox fonts-dejavu-core "${packages_format[@]}" dose-distcheck desktop-file-utils appstream man-db libxml2-utils
    lighttpd vsftpd polkitd dbus systemd curl procps iproute2 python3 zstd)
packages_bench=(libbenchmark-dev dose-distcheck jq wrk)
packages_fuzz=(clang libclang-rt-dev)
packages_package=(build-essential "${packages_units[@]}" dpkg-dev debhelper lintian mmdebstrap man-db desktop-file-utils appstream fonts-dejavu-core
    lighttpd vsftpd polkitd dbus systemd curl procps iproute2)

# need PACKAGE...: installs the missing packages. When none is missing, it only asks dpkg.
need() {
    local missing=() package state
    for package in "$@"; do
        state=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
        [ "$state" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Missing packages: ${missing[*]}. Install them as root, then start again." >&2
            return 1
        fi
        as_root=(sudo)
    fi
    # The tests start the servers in a system of their own. On this machine they would occupy the ports 80 and 21.
    local idle=() status=0
    if [ -d /run/systemd/system ]; then
        for package in "${missing[@]}"; do
            case "$package" in lighttpd | vsftpd) idle+=("$package.service") ;; esac
        done
    fi
    [ ${#idle[@]} -eq 0 ] || "${as_root[@]}" systemctl mask --runtime "${idle[@]}"
    echo "Installing missing packages: ${missing[*]}"
    { "${as_root[@]}" apt-get update -q &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -q -y --no-install-recommends "${missing[@]}"; } || status=$?
    if [ ${#idle[@]} -gt 0 ]; then
        "${as_root[@]}" systemctl unmask --runtime "${idle[@]}"
        "${as_root[@]}" systemctl disable "${idle[@]}" || true
    fi
    return "$status"
}

# configure PRESET [ARGUMENT...]: prepares build/PRESET, with a compiler cache if one is installed.
configure() {
    local cache=()
    if command -v ccache >/dev/null; then
        cache=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    fi
    cmake --preset "$@" "${cache[@]}"
}
