#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs a package in a bare Debian 12 made for the purpose, starts the program there and removes
# it again. Needs root, debootstrap and a mirror.
# Usage: bare_system.sh PACKAGE [MIRROR]   (else the mirror of this machine's own apt)
# shellcheck disable=SC2016 # what looks like variables is for apt and dpkg
set -euo pipefail
package=$1
suite=bookworm

fail() {
    echo "bare_system: $*" >&2
    exit 1
}

[ "$(id -u)" = 0 ] || fail "needs root"
mirror=${2-$(apt-get indextargets --format '$(RELEASE) $(REPO_URI)' 'Created-By: Packages' |
    awk -v suite="$suite" '$1 == suite { print $2; exit }')}
[ -n "$mirror" ] || fail "no mirror of $suite known; name one"

root=$(mktemp -d)
chmod 755 "$root"
remove_root() {
    umount "$root/proc" 2>/dev/null || true
    rm -rf --one-file-system "$root"
}
trap remove_root EXIT
in_root() {
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C DEBIAN_FRONTEND=noninteractive \
        chroot "$root" "$@"
}

echo "bare_system: making a bare $suite"
debootstrap --variant=minbase "$suite" "$root" "$mirror" >"$root.log" 2>&1 ||
    { tail "$root.log" >&2; fail "debootstrap failed"; }
rm -f "$root.log"
mount -t proc proc "$root/proc"
# Docs and the like are taken in too, so that removal has all of them to remove.
rm -f "$root"/etc/dpkg/dpkg.cfg.d/*
in_root apt-get update -qq
snapshot() { (cd "$root" && find etc opt root srv usr home -xdev | LC_ALL=C sort); }
in_root dpkg-query -W -f '${Package}\n' >"$root/tmp/packages"
snapshot >"$root/tmp/before"

cp "$package" "$root/tmp/kestrelwood.deb"
in_root apt-get install -y -qq --no-install-recommends /tmp/kestrelwood.deb >/dev/null 2>&1 ||
    fail "can't be installed"
echo "bare_system: installed with $(($(in_root dpkg-query -W -f '${Package}\n' | wc -l) - $(wc -l <"$root/tmp/packages"))) packages"
# There are commands and libraries, but no font, no translation, no sound and no screen. The toolkit
# wants a folder for the session, which a login would have made.
mkdir -m 700 "$root/tmp/session"
status=0
in_root env QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR=/tmp/session timeout 5 kestrelwood \
    >"$root/tmp/said" 2>&1 || status=$?
[ "$status" = 124 ] || fail "the program ended by itself with $status: $(cat "$root/tmp/said")"
# What the screenless plug-in says of itself doesn't count.
! grep -v propagateSizeHints "$root/tmp/said" || fail "that is what the program said"

in_root apt-get purge -y -qq --auto-remove kestrelwood >/dev/null 2>&1 || fail "can't be removed"
snapshot >"$root/tmp/after"
left=$(comm -13 "$root/tmp/before" "$root/tmp/after")
ours=$(grep -i kestrelwood <<<"$left" || true)
[ -z "$ours" ] || fail "left behind: $ours"
[ -z "$left" ] || echo "bare_system: other packages left $(wc -l <<<"$left") entries, none of them ours"
echo "bare_system: all is well"
