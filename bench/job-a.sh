#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Job A: a folder of 12-megapixel JPEG files through Resize 50 %, Sharpen, Text, Watermark, saved at quality 80 with
# their metadata. Prints CPU seconds of ours and of what it is measured against, run in turn, and the ratio of medians.
#   BENCH_CORPUS   folder with *.jpg files, and logo.png for the watermark (needed)
#   BENCH_PEERS    a command to measure against; it finds the files in $F, an empty folder in $OUT (default: none)
#   BENCH_TASKS    a task list to run instead (default: the four tasks above)
#   RUNS           pairs of runs (default 5)       FILES  how many files (default 8)
#   TARSEL         the program (default: build/release/bin/tarsel)
set -euo pipefail
project=$(cd "$(dirname "$0")/.." && pwd)
corpus=${BENCH_CORPUS:?set BENCH_CORPUS to a folder of JPEG files}
tarsel=${TARSEL:-$project/build/release/bin/tarsel}
runs=${RUNS:-5}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
[ -x "$tarsel" ] || { echo "no program at $tarsel: build the preset release, or set TARSEL" >&2; exit 1; }

mapfile -t files < <(find "$corpus" -maxdepth 1 -name '*.jpg' | sort | head -n "${FILES:-8}")
[ "${#files[@]}" -gt 0 ] || { echo "no JPEG files in $corpus" >&2; exit 1; }
logo=$(find "$corpus" "$corpus/.." -maxdepth 1 -name logo.png | head -n 1)
export OUT=$work/out F="${files[*]}"

job_a() {
    printf '"3","resize","False","50","","","","","","","","","","","","","","",""\r\n'
    printf '"7","sharpen","2","","","","","","","","","","","","","","","",""\r\n'
    printf '"10","text","True","False","True","0","2","DejaVu Sans","45","False","False","False","16777215","0","0","8",'
    printf '"Benchmark picture 2026","0","0"\r\n'
    [ -z "$logo" ] || printf '"9","watermark","False","50","1","%s","0","40","40","False","","","","","","","","",""\r\n' "$logo"
}
if [ -n "${BENCH_TASKS:-}" ]; then cp "$BENCH_TASKS" "$work/job.tbf"; else job_a >"$work/job.tbf"; fi

cpu_of() { # COMMAND...: CPU seconds of it and its children, on an empty folder
    rm -rf "$OUT"
    mkdir "$OUT"
    local TIMEFORMAT='%U %S' times
    times=$({ time "$@" >"$work/log" 2>&1 || { { echo "failed: $*"; tail -n 5 "$work/log"; } >&3; exit 1; }; } 3>&2 2>&1)
    echo "$times" | tail -n 1 | awk '{ print $1 + $2 }'
}

ours() { "$tarsel" batch --tasks "$work/job.tbf" --out "$OUT" "${files[@]}"; }
peers() { bash -c "$BENCH_PEERS"; }
median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

cpu_of ours >/dev/null # warms the page cache
written=$(find "$OUT" -name '*.jpg' | wc -l)
[ "$written" = "${#files[@]}" ] || { echo "only $written of ${#files[@]} files were written" >&2; exit 1; }
for ((i = 0; i < runs; i++)); do
    cpu_of ours >>"$work/ours"
    [ -z "${BENCH_PEERS:-}" ] || cpu_of peers >>"$work/peers"
done
a=$(median <"$work/ours")
echo "ours:  $a s CPU for ${#files[@]} files (median of $runs)"
if [ -n "${BENCH_PEERS:-}" ]; then
    b=$(median <"$work/peers")
    echo "peers: $b s CPU"
    awk -v a="$a" -v b="$b" 'BEGIN { printf "ratio: %.2f\n", a / b }'
fi
