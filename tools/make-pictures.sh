#!/bin/bash
# SPDX-License-Identifier: MIT
# Takes the pictures under docs/ from the real window: tools/make-pictures.sh [program file].
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
program=$(realpath "${1:-$root/build/release/kestrelwood}")
docs=$root/docs
. "$root/tools/packages.sh"
need xvfb openbox xdotool imagemagick pngquant

work=$(mktemp -d)
trap 'jobs -p | xargs -r kill 2>/dev/null || true; rm -rf "$work"' EXIT
exec 9<>"$work/display"
Xvfb -displayfd 9 -noreset -nolisten tcp -screen 0 1100x850x24 2>/dev/null &
until [ -s "$work/display" ]; do sleep 0.1; done
DISPLAY=:$(cat "$work/display")
export DISPLAY HOME=$work QT_SCALE_FACTOR=1
unset WAYLAND_DISPLAY QT_QPA_PLATFORM
openbox 2>/dev/null &
"$program" &
sleep 3 # the splash bears the same name
window=$(xdotool search --sync --onlyvisible --name 'Kestrelwood Beta' | head -n 1)
xdotool windowactivate --sync "$window"

# What follows knows the places of the controls at scale 1.
click() { xdotool mousemove --window "$window" "$1" "$2" click 1 sleep 0.3; }
coup() {
    local n
    for n; do
        if [ "$n" = 0 ]; then click 54 87; else click $((34 + 20 * ((n - 1) % 3))) $((109 + 20 * ((n - 1) / 3))); fi
    done
}
family() { # by its place in the list
    click 186 52
    xdotool key Home
    for ((i = 0; i < $1; ++i)); do xdotool key Down; done
    xdotool key Return sleep 1
}
# shot NAME [what part of the window]; the pointer stands aside, so that nothing is lit.
shot() {
    xdotool mousemove --window "$window" 480 720 sleep 0.5
    import -silent -window "$window" "$work/shot.png"
    convert "$work/shot.png" ${2:+-crop "$2" +repage} "$work/$1.png"
}
single() { click 127 690; } # "einfache Sortierung"

coup 17 0 36 2
for i in 0 1 2 3 4 5 6; do
    family $i
    part=$((i < 5 ? 141 : i < 6 ? 321 : 381))x117+118+41
    shot numbers "$part"
    single
    shot codes "$part"
    single
    convert "$work/numbers.png" -size 24x1 xc:white "$work/codes.png" +append "$work/familie$((i + 1)).png"
done

click 56 502 # "Reset"
coup 19 33 3 24 0 13 21 36 32 5 11 9 23 7 28 30 12 1 26 4 35 14 0 8 22 31 3 18 20 10 25 6 34 16 21 27 \
    15 29 17 2 17 5 17 0 36 32 8 11
grids=()
for i in 0 1 2 3 4 5 6; do
    family $i
    shot "grid$i" $((i < 5 ? 143 : i < 6 ? 323 : 383))x318+118+41
    grids+=("$work/grid$i.png")
done
convert -background white \( "${grids[@]:0:5}" -splice 12x12 +append \) \
    \( "${grids[@]:5}" -splice 12x12 +append \) -append "$work/familien.png"

family 5
click 247 690 # "Gitter an"
click 754 654 # "genau"
xdotool type 2
xdotool key Return sleep 1
shot bild
convert "$work/bild.png" -crop 113x692+0+18 +repage "$work/eingabe.png"
convert "$work/bild.png" -crop 487x692+520+18 +repage "$work/tableau.png"

for picture in bild familien eingabe tableau familie{1,2,3,4,5,6,7}; do
    pngquant --force --strip --speed 1 --output "$docs/$picture.png" 64 "$work/$picture.png"
done
