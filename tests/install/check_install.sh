#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs a build into a folder of its own and looks at what a desktop would find there.
# Usage: check_install.sh BUILD_FOLDER SOURCE_FOLDER ID VERSION
set -euo pipefail
build=$1 source=$2 id=$3 version=$4

fail() {
    echo "check_install: $*" >&2
    exit 1
}

work=$(mktemp -d)
manifest=$build/install_manifest.txt
[ ! -f "$manifest" ] || cp -p "$manifest" "$work/manifest"
restore() {
    if [ -f "$work/manifest" ]; then mv "$work/manifest" "$manifest"; else rm -f "$manifest"; fi
    rm -rf "$work"
}
trap restore EXIT

# Below a root of its own, by a user with a lax umask.
root=$work/root
(umask 002 && DESTDIR=$root cmake --install "$build" --prefix /usr >/dev/null)
share=$root/usr/share
desktop=$share/applications/$id.desktop
metainfo=$share/metainfo/$id.metainfo.xml
command=$root/usr/bin/kestrelwood

# The command is a link within the root. Started without a screen, as a user with an empty home, the
# program finds its melody beside itself, says nothing and leaves no file behind.
program=$(readlink -e "$command")
[ "${program#"$root"}" != "$program" ] || fail "$command leads out of its root"
[ -s "${program%/*}/info.mid" ] || fail "no melody beside $program"
mkdir -m 700 "$work/home"
status=0
env -u XDG_CONFIG_HOME -u XDG_CACHE_HOME -u XDG_DATA_HOME HOME="$work/home" \
    XDG_RUNTIME_DIR="$work/home" QT_QPA_PLATFORM=offscreen timeout 4 "$command" >"$work/output" 2>&1 ||
    status=$?
[ "$status" = 124 ] || fail "the program ended by itself with $status: $(cat "$work/output")"
# What the screenless plug-in says of itself at every window of fixed size doesn't count.
! grep -v propagateSizeHints "$work/output" || fail "that is what the program said"
[ -z "$(find "$work/home" -type f)" ] || fail "left behind: $(find "$work/home" -type f)"
wrong=$(find "$root" -mindepth 1 ! -type l \( ! -perm -a=r -o -perm /go=w \))
[ -z "$wrong" ] || fail "not readable for all, or writable for others: $wrong"

desktop-file-validate "$desktop"
appstreamcli validate --pedantic --no-net --no-color "$metainfo"
for page in man1 de/man1; do
    mandoc -T lint -W all "$share/man/$page/kestrelwood.1" || fail "man page in $page"
done

# The validators look at one file each. That they speak of the same program is for us to see.
for line in "Icon=$id" Exec=kestrelwood StartupWMClass=kestrelwood; do
    grep -qxF "$line" "$desktop" || fail "the desktop entry lacks $line"
done
for element in "<id>$id</id>" "<launchable type=\"desktop-id\">$id.desktop</launchable>"; do
    grep -qF "$element" "$metainfo" || fail "the metainfo lacks $element"
done
# A window says its id where there is Wayland, so the program has to hold the same one; in the
# toolkit's own texts, of two bytes a letter.
strings -el "$program" | grep -xF "$id" >/dev/null || fail "the program doesn't know itself as $id"
for size in 16 22 24 32 48 64 128 256; do
    icon=$share/icons/hicolor/${size}x$size/apps/$id.png
    # Width and height stand in the PNG's header.
    [ "$(od -An -tu1 -j16 -N8 "$icon" | awk '{print $3 * 256 + $4, $7 * 256 + $8}')" = "$size $size" ] ||
        fail "no icon of size $size"
done
[ -f "$share/icons/hicolor/scalable/apps/$id.svg" ] || fail "no scalable icon"

# One release, told in three places.
date=$(sed -nE "s/.*<release version=\"$version\" date=\"([^\"]*)\".*/\1/p" "$metainfo")
grep -qxF "## [$version] - $date" "$source/CHANGELOG.md" || fail "CHANGELOG.md lacks $version of $date"
for part in "($version)" "$(LC_ALL=C date -d "$date" '+%a, %d %b %Y')"; do
    grep -qF "$part" "$source/debian/changelog" || fail "the package's changelog lacks $part"
done

(cd "$root" && sed "s,^/,./," "$manifest" | xargs -d '\n' rm --)
left=$(find "$root" ! -type d)
[ -z "$left" ] || fail "removal leaves: $left"
echo "check_install: all is well"
