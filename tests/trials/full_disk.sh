#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Saves over an old file on disks that fill up: the old file must stay and the user must be told;
# on a disk with just enough room the save must succeed.
# shellcheck source-path=SCRIPTDIR
. "$(dirname "$0")/lib.sh"
if [ "${1-}" != mounting ]; then
    built files_trial
    # A mount of our own that goes with this script; without root in a user namespace.
    [ "$(id -u)" = 0 ] && as=() || as=(--map-root-user)
    exec unshare --mount "${as[@]}" "$0" mounting "$program"
fi
program=$2
room
page=$(getconf PAGESIZE)
cp "$program" "$room/program"
count=0

# save_with ROOM COUPS WANTED: a disk of 64 pages with ROOM bytes (whole pages) left beside the old
# file; saves COUPS coups of 4 to 5 bytes each.
save_with() {
    mkdir -p "$room/disk"
    mount -t tmpfs -o "size=$((64 * page))" tmpfs "$room/disk"
    printf ' 17 \r\n' >"$room/disk/permanenz.txt"
    pages=$(($1 / page))
    [ "$pages" = 63 ] || head -c $(((63 - pages) * page)) /dev/zero >"$room/disk/filler"
    left=$(($(stat -f -c '%f * %S' "$room/disk")))
    expect "room on the disk" "$1" "$left"
    before=$(ls -A "$room/disk")
    said=$("$room/program" save "$room/disk/permanenz.txt" "$2" || true)
    is=$(md5sum <"$room/disk/permanenz.txt")
    if [ "$3" = saved ]; then
        told "save of $2 coups with $1 bytes free" "" "$said"
        expect "the new file" "$("$room/program" save "$room/whole.txt" "$2" && md5sum <"$room/whole.txt")" "$is"
    else
        told "save of $2 coups with $1 bytes free" "Der Datenträger ist voll." "$said"
        expect "the old file" "$(printf ' 17 \r\n' | md5sum)" "$is"
    fi
    expect "what lies on the disk" "$before" "$(ls -A "$room/disk")"
    umount "$room/disk"
    count=$((count + 1))
}

# coups_for BYTES: how many coups the first save of so many bytes or more has.
bytes_of() {
    "$room/program" save "$room/size.txt" "$1"
    stat -c %s "$room/size.txt"
}
coups_for() {
    low=1
    high=$(($1 / 5 + 1))
    while [ $low -lt $high ]; do
        middle=$(((low + high) / 2))
        if [ "$(bytes_of $middle)" -ge "$1" ]; then high=$middle; else low=$((middle + 1)); fi
    done
    echo $low
}

# Room comes in pages, so the missing byte is made by the length of the file: for a room of R bytes
# a file of at least R + 1, and one that just fits.
save_with 0 1 refused
save_with 0 $((10 * page / 5)) refused
for free in 1 8 40; do
    bytes=$((free * page))
    over=$(coups_for $((bytes + 1)))
    save_with $bytes "$over" refused
    save_with $bytes $((over - 1)) saved
    save_with $bytes $((2 * over)) refused
done
save_with $((63 * page)) $((63 * page)) refused
echo "full disk: $count saves, $failures faults"
[ "$failures" = 0 ]
