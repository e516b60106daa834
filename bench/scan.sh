#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# A page from the test driver of the scanner service into a TIFF file by `tarsel scan`: wall time, the part of it after
# the last line, and the largest memory of the program and of its process for drivers. The glass of the test driver is
# 200 mm square; at 749 dpi that is as many pixels as A4 at 600 dpi.
#   TARSEL  the program (default: build/release/bin/tarsel)     RUNS  runs (default 3)
#   DPI     resolution (default 749)                            MODE  Color (default) or Gray
set -euo pipefail
project=$(cd "$(dirname "$0")/.." && pwd)
tarsel=${TARSEL:-$project/build/release/bin/tarsel}
work=$(mktemp -d -p "${TMPDIR:-/tmp}")
trap 'rm -rf "$work"' EXIT
echo test >"$work/dll.conf"
export SANE_CONFIG_DIR=$work QT_LOGGING_RULES=tarsel.scanner.debug=true
page=(--device test:0 --mode "${MODE:-Color}" --resolution "${DPI:-749}" --area 0,0,200,200
    --set "test-picture=Color pattern")

peak_of() { # PID: its largest memory in MB, for as long as it lives
    local now last=0
    while now=$(awk '/VmHWM/ { print $2 }' "/proc/$1/status" 2>/dev/null) && [ -n "$now" ]; do
        last=$now
        sleep 0.01
    done
    echo $((last / 1024))
}

printf '%8s %12s %12s %12s %8s\n' 'wall s' 'of it saving' 'program MB' 'drivers MB' 'file MB'
for _ in $(seq "${RUNS:-3}"); do
    rm -f "$work/page.tif"
    start=$(date +%s%N)
    "$tarsel" scan --out "$work/page.tif" "${page[@]}" >"$work/log" 2>&1 &
    program=$!
    peak_of "$program" >"$work/program" &
    drivers=
    while [ -z "$drivers" ] && kill -0 "$program" 2>/dev/null; do
        drivers=$(pgrep -P "$program" | head -n 1) || true
    done
    peak_of "${drivers:-0}" >"$work/drivers" &
    wait "$program"
    end=$(date +%s%N)
    wait
    awk -v s="$start" -v e="$end" -v v="$(sed -n 's/.*saved in \([0-9.]*\) s.*/\1/p' "$work/log")" \
        -v p="$(cat "$work/program")" -v d="$(cat "$work/drivers")" -v f="$(stat -c %s "$work/page.tif")" \
        'BEGIN { printf "%8.2f %12.2f %12d %12d %8d\n", (e - s) / 1e9, v, p, d, f / 1048576 }'
done
tail -n 1 "$work/log"
