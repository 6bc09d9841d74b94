#!/bin/sh
# SPDX-License-Identifier: MIT
# Renders the PNG pictures under data/ from the SVG sources in data/art/.
# Needs rsvg-convert (librsvg2-bin) and ImageMagick's convert, which takes the alpha channel out
# of the full-bleed pictures: the program ripples and stretches those as plain 24 bit RGB.
set -eu

data=$(CDPATH='' cd -- "$(dirname -- "$0")/../data" && pwd)
art=$data/art
name=de.kestrelwood.kestrelwood

for tool in rsvg-convert convert; do
    command -v "$tool" >/dev/null || { echo "render-art: $tool is missing" >&2; exit 1; }
done

tmp=$(mktemp)
trap 'rm -f "$tmp"' EXIT

# opaque SOURCE WIDTH HEIGHT TARGET
opaque() {
    rsvg-convert --width "$2" --height "$3" "$art/$1" --output "$tmp"
    convert "png:$tmp" -background black -alpha remove -alpha off -strip \
        -define png:color-type=2 -define png:bit-depth=8 -define png:compression-level=9 \
        -define png:exclude-chunks=date,time "$data/pictures/$4"
}

for size in 16 22 24 32 48 64 128 256; do
    source=symbol.svg
    [ "$size" -gt 32 ] || source=symbol-small.svg
    dir=$data/icons/hicolor/${size}x$size/apps
    mkdir -p "$dir"
    rsvg-convert --width "$size" --height "$size" "$art/$source" --output "$dir/$name.png"
done
set --
for size in 16 24 32 48 64 256; do
    set -- "$@" "$data/icons/hicolor/${size}x$size/apps/$name.png"
done
convert "$@" "$data/windows/kestrelwood.ico"
mkdir -p "$data/icons/hicolor/scalable/apps" "$data/pictures"
cp "$art/symbol.svg" "$data/icons/hicolor/scalable/apps/$name.svg"

opaque icon148.svg 148 148 icon.png
opaque icon148.svg 296 296 icon@2x.png
opaque banner.svg 663 261 banner.png
opaque banner.svg 1326 522 banner@2x.png
