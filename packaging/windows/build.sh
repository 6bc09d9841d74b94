#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Makes build/kestrelwood-VERSION-windows.zip on Debian: brings compiler and toolkit, builds the
# program as one file, tests it under wine and packs it. The toolkit takes a quarter of an hour the
# first time; it stays in build/windows.
set -eu
cd "$(dirname "$0")/../.."
. tools/packages.sh
here=packaging/windows
work=$PWD/build/windows
toolkit=$work/toolkit
log=$work/log
version=$(sed -n 's/^ *VERSION \([0-9.]*\)$/\1/p' CMakeLists.txt)
name=kestrelwood-$version-windows

# step WHAT COMMAND...: says what it does and how long it took; the command's own words go to a log.
step() {
    printf '%s ... ' "$1"
    local from=$SECONDS failed
    set +e # not in an "if", where a function would go on after a failure
    (set -e && "${@:2}") >>"$log" 2>&1
    failed=$?
    set -e
    if [ "$failed" != 0 ]; then
        echo "failed. The end of $log:"
        tail -n 40 "$log"
        exit 1
    fi
    echo "$((SECONDS - from)) s"
}

# The toolkit's source, in the version of its tools on this machine. Lists of sources are often
# missing and aren't ours to switch on, so apt gets copies of the machine's lists, turned to sources.
fetch() {
    local apt=$work/apt
    mkdir -p "$apt/lists/partial" "$apt/sources"
    for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.{list,sources}; do
        [ ! -f "$list" ] ||
            sed -E 's/^deb +/deb-src /; s/^Types:.*/Types: deb-src/' "$list" >"$apt/sources/${list##*/}"
    done
    set -- -o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$apt/sources" \
        -o Dir::State::Lists="$apt/lists" -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache=
    apt-get "$@" update
    (cd "$work" && apt-get "$@" source --download-only \
        "qt6-base=$(dpkg-query -W -f '${source:Version}' qt6-base-dev)")
}

unpack() {
    mkdir -p "$work/toolkit-source"
    tar -xf "$work"/qt6-base_*.orig.tar.xz -C "$work/toolkit-source" --strip-components=1
    tar -xf "$work"/qt6-base_*.debian.tar.xz -C "$work/toolkit-source" debian/copyright
    # The toolkit's file dialog writes its size and places to the registry. This program keeps no
    # settings.
    sed -i 's/^#if QT_CONFIG(settings)/#if 0/' \
        "$work/toolkit-source/src/widgets/dialogs/qfiledialog.cpp"
}

host="-DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/$(gcc -print-multiarch)/cmake"

# What the program doesn't use is left out, as is what the cross compiler lacks headers for.
build_toolkit() {
    local without=()
    for feature in concurrent dbus network pkg_config printsupport sql testlib vulkan xml \
        direct2d directwrite3 tabletevent; do
        without+=("-DFEATURE_$feature=OFF")
    done
    # shellcheck disable=SC2086 # a list of words
    cmake -G Ninja -S "$work/toolkit-source" -B "$work/toolkit-build" $host "${without[@]}" \
        -DCMAKE_TOOLCHAIN_FILE="$PWD/$here/mingw.cmake" -DCMAKE_INSTALL_PREFIX="$toolkit" \
        -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF -DQT_BUILD_EXAMPLES=OFF \
        -DQT_BUILD_TESTS=OFF -DQT_QMAKE_TARGET_MKSPEC=win32-g++ -DINPUT_opengl=no
    cmake --build "$work/toolkit-build"
    cmake --install "$work/toolkit-build"
    rm -r "$work/toolkit-build"
}

build_program() {
    # shellcheck disable=SC2086
    cmake -G Ninja -S . -B "$work/program" $host -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_TOOLCHAIN_FILE="$toolkit/lib/cmake/Qt6/qt.toolchain.cmake"
    cmake --build "$work/program"
}

# dos FILE TARGET: with the line ends that every editor on Windows knows.
dos() {
    sed "s/@VERSION@/$version/; s/\$/\r/" "$1" >"$2"
}

pack() {
    local folder=$work/$name
    rm -rf "$folder" "build/$name.zip"
    mkdir -p "$folder/Lizenzen" "$folder/Handbuch"
    x86_64-w64-mingw32-strip -o "$folder/kestrelwood.exe" "$work/program/kestrelwood.exe"
    cp data/melody/info.mid "$folder"
    dos "$here/LIESMICH.txt" "$folder/LIESMICH.txt"
    dos docs/handbuch.md "$folder/Handbuch/handbuch.md"
    cp docs/*.png "$folder/Handbuch"
    dos LICENSE "$folder/Lizenzen/Kestrelwood.txt"
    dos "$work/toolkit-source/debian/copyright" "$folder/Lizenzen/Qt.txt"
    for licence in LGPL-3.0-only GPL-3.0-only; do
        dos "$work/toolkit-source/LICENSES/$licence.txt" "$folder/Lizenzen/$licence.txt"
    done
    dos /usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright "$folder/Lizenzen/GCC.txt"
    dos /usr/share/doc/mingw-w64-x86-64-dev/copyright "$folder/Lizenzen/MinGW-w64.txt"
    (cd "$work" && zip -qrX "../$name.zip" "$name")
}

mkdir -p "$work"
: >"$log"
# shellcheck disable=SC2086 # lists of words
step "Packages that are missing" need $build_packages $test_packages $windows_packages
if [ ! -d "$toolkit" ]; then
    step "The toolkit's source" fetch
    step "Unpacking it" unpack
    step "Building the toolkit (a quarter of an hour)" build_toolkit
fi
step "Building the program" build_program
step "Its tests under wine" ctest --test-dir "$work/program" --output-on-failure
step "Packing" pack
ls -l "build/$name.zip"
