#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs a Windows program here, with a home of its own and no word from wine itself.
set -eu
WINEPREFIX=$(cd "$(dirname "$0")/../.." && pwd)/build/windows/wine
export WINEPREFIX WINEDEBUG="${WINEDEBUG--all}" WINEDLLOVERRIDES="${WINEDLLOVERRIDES-mscoree,mshtml=}"
mkdir -p "${WINEPREFIX%/*}"
exec wine "$@"
