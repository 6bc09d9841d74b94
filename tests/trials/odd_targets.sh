#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Saves to and loads from what is no ordinary file, as an ordinary user: each has an outcome with a
# name, never a wait, and never a lost file.
# shellcheck source-path=SCRIPTDIR
# shellcheck disable=SC2059 # the contents are formats
. "$(dirname "$0")/lib.sh"
built files_trial
room
cp "$program" "$room/program"
chmod 755 "$room" "$room/program"
[ "$(id -u)" = 0 ] && user=(setpriv --reuid=65534 --regid=65534 --clear-groups) || user=()
mkdir "$room/d"
[ "$(id -u)" != 0 ] || chown 65534:65534 "$room/d"
cd "$room/d"
old=' 17 \r\n'
new=' 0 \r\n 7 \r\n'
count=0

# as_user COMMAND...
as_user() { "${user[@]}" "$@"; }

# save NAME REASON [FILE CONTENT]: saves two coups to NAME; FILE then holds CONTENT.
save() {
    said=$(as_user timeout 10 "$room/program" save "$1" 2) || [ $? = 3 ] || said="Fault: exit code"
    told "saving to ${1:0:40}" "$2" "$said"
    [ $# = 2 ] || expect "what ${3:0:40} holds" "$(printf "$4" | od -c)" "$(od -c <"$3")"
    count=$((count + 1))
}

# load NAME REASON [COUPS]
load() {
    said=$(as_user timeout 10 "$room/program" load "$1") || [ $? = 3 ] || said="Fault: exit code"
    told "loading ${1:0:40}" "$2" "$said"
    expect "coups from ${1:0:40}" "${3:-0}" "${said%% coups*}"
    count=$((count + 1))
}

as_user bash -c "
    umask 022
    printf '$old' >plain; printf '$old' >read-only; chmod 444 read-only
    printf '$old' >secret; chmod 000 secret
    mkdir folder closed; printf '$old' >closed/file; chmod 555 closed
    mkdir locked; printf '$old' >locked/file; chmod 000 locked
    mkfifo fifo; ln -s plain link; ln -s link link2; ln -s nothing dangling; ln -s circle circle
    ln -s fifo to-fifo; ln -s folder to-folder"
long=$(printf 'n%.0s' $(seq 255))

denied="Die Zugriffsrechte fehlen."
nothing="Die Datei oder der Ordner wurde nicht gefunden."
folder="Es ist ein Ordner, keine Datei."
special="Es ist keine gewöhnliche Datei."

load plain "" 1
load link2 "" 1
load secret "$denied"
load locked/file "$denied"
load nowhere "$nothing"
load dangling "$nothing"
load circle "Die Verknüpfung führt im Kreis."
load folder "$folder"
load to-folder "$folder"
load fifo "$special"
load /dev/zero "$special"
load plain/inside "Der Pfad führt nicht durch einen Ordner."
load "${long}n" "Der Dateiname ist zu lang."

save plain "" plain "$new"
printf "$old" >plain
save link2 "" plain "$new"
expect "the link" "link" "$(readlink link2)"
save dangling "" nothing "$new"
save read-only "$denied" read-only "$old"
save secret "$denied"
save closed/file "$denied" closed/file "$old"
save closed/new "$denied"
save locked/file "$denied"
save folder "$folder"
save to-folder "$folder"
save fifo "$special"
save to-fifo "$special"
save /dev/null "$special"
save /dev/full "$special"
save circle "Die Verknüpfung führt im Kreis."
save gone/file "$nothing"
save plain/inside "Der Pfad führt nicht durch einen Ordner."
save "$long" "" "$long" "$new"
save "$long" "" "$long" "$new"
save "${long}n" "Der Dateiname ist zu lang."
save "größe und leer.txt" "" "größe und leer.txt" "$new"
expect "the pipe" "fifo" "$(stat -c %F fifo)"
chmod 755 closed locked
expect "files left aside" "" "$(find . -name '.kestrelwood-*')"
echo "odd targets: $count saves and loads as uid $(as_user id -u), $failures faults"
[ "$failures" = 0 ]
