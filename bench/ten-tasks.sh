#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Ten tasks at full size over a folder of JPEG files, saved at quality 80, and in turn the same files decoded and encoded
# again and nothing else. Prints CPU seconds of both and the ratio of their medians. The variables are those of job-a.sh:
#   BENCH_CORPUS=~/pictures/2mp FILES=100 RUNS=3 bench/ten-tasks.sh
set -eu
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -r "$work"' EXIT

row() { # COLUMN...: a row of a task list, filled up to its 19 columns
    fields=
    for column in "$@"; do fields="$fields\"$column\","; done
    for _ in $(seq $# 18); do fields="$fields\"\","; done
    printf '%s\r\n' "${fields%,}"
}

mark=$(find "$BENCH_CORPUS" "$BENCH_CORPUS/.." -maxdepth 1 -name logo.png | head -n 1)
[ -n "$mark" ] || { echo "no logo.png in or beside $BENCH_CORPUS" >&2; exit 1; }
{
    row 1 flip 0
    row 2 rotate True 3 16777215
    row 12 canvas 16777215 8 8 8 8
    row 5 contrast 58 1 1 1
    row 6 brightness 53 1 1 1
    row 7 sharpen 2
    row 9 watermark False 50 1 "$mark" 0 40 40
    row 10 text True False True 0 2 'DejaVu Sans' 45 False False False 16777215 0 0 8 'Ten tasks' 0 0
    row 13 frame 16777215 0 0 1
    row 15 shadow 2
} >"$work/tasks.tbf"
export BENCH_TASKS="$work/tasks.tbf"
recode=${RECODE:-$here/../build/release/bin/jpeg_recode}
BENCH_PEERS="$recode \"\$OUT\" \$F" "$here/job-a.sh"
