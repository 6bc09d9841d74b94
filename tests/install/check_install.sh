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

# install PREFIX: below a root of its own, whose path it puts into `root`.
install() {
    root=$work/root$1
    (umask 002 && DESTDIR=$root cmake --install "$build" --prefix "$1" >/dev/null)
}

# start COMMAND: runs it without a screen, as a user with an empty home, and stops it again. The
# program has to be found beside its melody, to say nothing, and to leave no file behind.
start() {
    mkdir -p "$work/home" "$work/session"
    chmod 700 "$work/session"
    env -u XDG_CONFIG_HOME -u XDG_CACHE_HOME -u XDG_DATA_HOME HOME="$work/home" \
        XDG_RUNTIME_DIR="$work/session" QT_QPA_PLATFORM=offscreen "$1" >"$work/output" 2>&1 &
    local process=$! program status=0
    # Long enough for the splash to go and the window to come.
    sleep 4
    program=$(readlink "/proc/$process/exe" || true)
    kill "$process" 2>/dev/null || true
    wait "$process" || status=$?
    [ "$status" = 143 ] || fail "$1 ended by itself with $status: $(cat "$work/output")"
    [ -s "${program%/*}/info.mid" ] || fail "no melody beside $program"
    # What the screenless plug-in says of itself at every window of fixed size doesn't count.
    ! grep -v propagateSizeHints "$work/output" >"$work/said" || fail "$1 says: $(cat "$work/said")"
    [ -z "$(find "$work/home" -type f)" ] || fail "left behind: $(find "$work/home" -type f)"
}

for prefix in /usr /opt/kestrelwood; do
    install "$prefix"
    command=$root$prefix/bin/kestrelwood
    [ -L "$command" ] || fail "$command is no link"
    case $(readlink "$command") in
    /*) fail "$command leads out of its root" ;;
    esac
    [ -x "$command" ] || fail "$command leads nowhere"
    start "$command"
    wrong=$(find "$root" -mindepth 1 ! -type l \( ! -perm -a=r -o -perm /go=w \))
    [ -z "$wrong" ] || fail "not readable for all, or writable for others: $wrong"
    (cd "$root" && sed "s,^/,./," "$manifest" | tr '\n' '\0' | xargs -0 rm --)
    left=$(find "$root" ! -type d)
    [ -z "$left" ] || fail "removal leaves: $left"
done

install /usr
share=$root/usr/share
desktop=$share/applications/$id.desktop
metainfo=$share/metainfo/$id.metainfo.xml

desktop-file-validate "$desktop"
appstreamcli validate --pedantic --no-net --no-color "$metainfo"
for page in man1 de/man1; do
    gunzip -c "$share/man/$page/kestrelwood.1.gz" >"$work/kestrelwood.1"
    mandoc -T lint -W all "$work/kestrelwood.1" || fail "man page in $page"
done

# The validators look at one file each. That they speak of the same program is for us to see.
expect() {
    [ "$2" = "$3" ] || fail "$1 is \"$2\", wanted: \"$3\""
}
field() { sed -n "s/^$1=//p" "$desktop"; }
element() { sed -nE "s,^ *<$1( [^>]*)?>([^<]*)</.*,\2,p" "$metainfo"; }
expect "the metainfo's id" "$(element id)" "$id"
expect "the metainfo's launchable" "$(element launchable)" "$id.desktop"
expect "the desktop entry's icon" "$(field Icon)" "$id"
expect "the desktop entry's command" "$(field Exec)" kestrelwood
expect "the desktop entry's class" "$(field StartupWMClass)" kestrelwood
# A window says its id where there is Wayland, so the program has to hold the same one; in the
# toolkit's own texts, of two bytes a letter.
strings -el "$root/usr/libexec/kestrelwood/kestrelwood" | grep -xF "$id" >/dev/null ||
    fail "the program doesn't know itself as $id"
for size in 16 22 24 32 48 64 128 256; do
    icon=$share/icons/hicolor/${size}x$size/apps/$id.png
    [ -f "$icon" ] || fail "no icon of size $size"
    # Width and height stand in the PNG's header.
    expect "size of $icon" "$(od -An -tu1 -j16 -N8 "$icon" | awk '{print $3 * 256 + $4, $7 * 256 + $8}')" "$size $size"
done
[ -f "$share/icons/hicolor/scalable/apps/$id.svg" ] || fail "no scalable icon"

# One release, told in three places.
date=$(sed -nE "s/.*<release version=\"$version\" date=\"([^\"]*)\".*/\1/p" "$metainfo")
grep -qxF "## [$version] - $date" "$source/CHANGELOG.md" || fail "CHANGELOG.md lacks $version of $date"
gunzip -c "$share/doc/kestrelwood/changelog.gz" >"$work/changelog"
expect "the package's changelog" "$(sed -n '1s/.*(\(.*\)).*/\1/p' "$work/changelog")" "$version"
expect "its date" "$(date -u -d "$(sed -n 's/^ -- .*>  //p' "$work/changelog" | head -n 1)" +%F)" "$date"
echo "check_install: all is well"
