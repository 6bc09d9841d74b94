#!/bin/bash
# SPDX-License-Identifier: MIT
# Looks at the program on every kind of screen, desktop, language and font set that users have.
#
# Usage: screens.sh [program file] [folder for pictures]
# Pictures are for eyes: without a folder they are only compared and thrown away.
# shellcheck disable=SC2317 # the functions are called by way of try
set -u
here=$(cd "$(dirname "$0")" && pwd)
program=${1:-$here/../../build/release/kestrelwood}
work=$(mktemp -d)
pictures=${2:-$work}
mkdir -p "$pictures"
trap 'rm -rf "$work"' EXIT
failed=0

# What is tried, then the command.
try() {
    local what=$1
    shift
    printf '%s: ' "$what"
    "$@" || failed=1
}
screen() { /usr/bin/python3 "$here/screens.py" "$@"; }

same() {
    if cmp -s <(convert "$1" ppm:-) <(convert "$2" ppm:-); then
        echo "equal"
    else
        echo "FAILED  the pictures differ"
        return 1
    fi
}

for scale in 1 1.25 1.5 2; do
    try "scale $scale, lines" env QT_SCALE_FACTOR=$scale /usr/bin/python3 "$here/screens.py" crisp "$program"
    try "scale $scale, picture" env QT_SCALE_FACTOR=$scale /usr/bin/python3 "$here/screens.py" look "$pictures/scale-$scale.png" "$program"
done
try "1366 x 768" screen small "$program"
try "pointer" screen pointer "$program"

for language in C en_US.UTF-8 de_DE.UTF-8; do
    try "dialogs, LANG=$language" env LANG=$language LC_ALL=$language LANGUAGE="${language%%.*}" \
        /usr/bin/python3 "$here/screens.py" words "$program"
done

if find /usr/lib -name libqgtk3.so 2>/dev/null | grep -q 'platformthemes.*libqgtk3'; then
    for theme in Adwaita Adwaita:dark; do
        picture=$pictures/desktop-${theme/:/-}.png
        try "desktop $theme" env QT_QPA_PLATFORMTHEME=gtk3 GTK_THEME=$theme \
            /usr/bin/python3 "$here/screens.py" look "$picture" "$program"
        try "desktop $theme beside none" same "$pictures/scale-1.png" "$picture"
    done
else
    echo "light and dark desktop: not tried, the package qt6-gtk-platformtheme is missing"
fi

# Only DejaVu, as on a fresh system: no text may be cut without a sign.
mkdir -p "$work/fonts"
cat >"$work/fonts.conf" <<END
<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig><dir>/usr/share/fonts/truetype/dejavu</dir><include>/etc/fonts/conf.d</include><cachedir>$work/fonts</cachedir></fontconfig>
END
try "only DejaVu" env FONTCONFIG_FILE="$work/fonts.conf" \
    /usr/bin/python3 "$here/screens.py" look "$pictures/dejavu.png" "$program"
try "only DejaVu, counts of eight digits" env FONTCONFIG_FILE="$work/fonts.conf" \
    /usr/bin/python3 "$here/screens.py" look "$pictures/dejavu-many.png" "$program" 50000000
try "counts of eight digits" screen look "$pictures/many.png" "$program" 50000000
exit $failed
