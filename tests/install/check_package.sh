#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Makes the Debian package as it is shipped and has lintian look at it. Takes a full build.
# Usage: check_package.sh [FOLDER]   (where the package is left, else it is thrown away)
set -euo pipefail
source=$(cd "$(dirname "$0")/../.." && pwd)

fail() {
    echo "check_package: $*" >&2
    exit 1
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake -G Ninja -S "$source" -B "$work/build" -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF \
    -DCMAKE_INSTALL_PREFIX=/usr >/dev/null
cmake --build "$work/build" -- --quiet
# The umask of whoever builds mustn't get into the package.
(umask 077 && cd "$work/build" && cpack -B "$work/out" >/dev/null)
package=$(echo "$work"/out/*.deb)
[ -f "$package" ] || fail "no package, or more than one"

lintian --allow-root --fail-on error,warning "$package"

depends=$(dpkg-deb -f "$package" Depends)
for library in libc6 libstdc++6 libqt6core6 libqt6gui6 libqt6widgets6 libfluidsynth3; do
    case ", $depends," in
    *", $library ("* | *", $library,"*) ;;
    *) fail "doesn't depend on $library: $depends" ;;
    esac
done
dpkg-deb --fsys-tarfile "$package" | tar -t >"$work/list"
for file in ./usr/bin/kestrelwood ./usr/libexec/kestrelwood/info.mid; do
    grep -qxF "$file" "$work/list" || fail "$file is missing"
done
# The same bytes whoever packs: nothing of the packer's account or place.
dpkg-deb --fsys-tarfile "$package" | tar -tv --numeric-owner |
    awk '$2 != "0/0" { bad = 1; print } END { exit bad }' || fail "files that root doesn't own"
dpkg-deb -x "$package" "$work/root"
! grep -rlF -e "$work" -e "$source" "$work/root" || fail "paths of the build in the files above"

echo "check_package: $(basename "$package"), $(stat -c %s "$package") bytes: all is well"
[ $# -eq 0 ] || cp "$package" "$1"
