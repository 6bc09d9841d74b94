# SPDX-License-Identifier: MIT
# Sourced by the commands: brings the Debian packages that are still missing.
# shellcheck shell=sh disable=SC2034 # the lists are for those who source this

build_packages="g++ cmake ninja-build pkg-config qt6-base-dev libgl-dev qt6-translations-l10n
    libfluidsynth-dev timgm6mb-soundfont fonts-liberation2"
test_packages="libgtest-dev desktop-file-utils appstream mandoc abcmidi"
check_packages="clang-format clang-tidy clang libclang-rt-14-dev"
trial_packages="xvfb openbox xdotool wmctrl x11-utils x11-xkb-utils imagemagick dbus at-spi2-core
    python3-pyatspi python3-numpy gir1.2-atspi-2.0 fonts-dejavu-core qt6-gtk-platformtheme"
windows_packages="g++-mingw-w64-x86-64-posix wine wine64 zip"
package_packages="dpkg-dev debhelper lintian"

# need PACKAGE...: installs those that aren't there, with sudo where that takes it.
need() {
    missing=
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
            missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    echo "Installing:$missing"
    as_root=
    [ "$(id -u)" = 0 ] || as_root=sudo
    $as_root apt-get update -qq
    # shellcheck disable=SC2086 # a list of words
    $as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends $missing >/dev/null
}
