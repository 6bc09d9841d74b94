#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Loads files that no one would call a permanence, and files that change while they are read.
#   odd_files.sh [--kurz]      --kurz: a tenth of a gigabyte in the one long line
# shellcheck source-path=SCRIPTDIR
. "$(dirname "$0")/lib.sh"
built files_trial
room
cd "$room"
count=0

# load NAME COUPS SUM [CHANGE]
load() {
    said=$(timeout 300 "$program" load "$1" ${4+"$4"}) || said="Fault: exit code $?: $said"
    told "$1" "" "$said"
    expect "$1 ${4-}" "$2 coups, sum $3" "${said%%, peak*}"
    last=${said##*, peak }
    count=$((count + 1))
}

printf '36\0\n\0 17\n5\n\0\0\n' >nul
load nul 1 5
printf '\xff\xfe1\0007\0\r\0\n\0005\0\r\0\n\0' >utf16
load utf16 0 0
printf '\xef\xbb\xbf17\r\n0\r\n36' >mark
load mark 3 53
printf '00000000000000000007\n18446744073709551617\n99999999999999999999\n3\n' >digits
load digits 2 10
printf '12.6\n1e1\n+5\n0x10\n12,5\n-0\n\x1a\n8\x1a\n 9 \n' >signs
load signs 1 9
printf '1\r2\n3\r\n4\n\r5\r\r\n6' >ends
load ends 6 21
: >empty
load empty 0 0
head -c 3000000 /dev/urandom >noise
said=$("$program" load noise) # what it holds is known to nobody, but it must go well
told noise "" "$said"
truncate -s 1G holes # one line of NUL bytes
load holes 0 0
length=1000000000
[ "${1-}" != --kurz ] || length=100000000
{ head -c $length /dev/zero | tr '\0' 7; printf '\n4\n'; } >line
load line 1 4
longest=$last
{ head -c $length /dev/zero | tr '\0' ' '; printf '4'; } >blanks
load blanks 1 4
rm line blanks holes

# 65,536 bytes are read at a time: the first 13,107 lines and a bit are in when the change comes.
whole() { yes ' 1 '$'\r' | head -n 100000 >"$1"; }
whole kept
load kept 100000 100000
whole shrinking
load shrinking 50000 50000 shrinks
whole growing
load growing 100002 100003 grows
whole vanishing
load vanishing 100000 100000 vanishes
whole replaced
load replaced 100000 100000 replaced
whole cut
truncate -s 65536 cut # it shrinks to less than what has been read
load cut 13107 13107 shrinks
echo "odd files: $count loads, $failures faults; one line of $length digits took $longest"
[ "$failures" = 0 ]
