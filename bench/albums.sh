#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Albums of the same pictures by `tarsel album` with both templates and by other generators of static galleries, in turn:
# CPU and wall time, the ratios to ours, and the files that each wrote. Generators that are not installed are left out.
#   BENCH_CORPUS  folder with *.jpg files (needed); they are repeated, as links, until there are FILES
#   FILES         how many pictures (default 500)     RUNS  runs of each (default 1)
#   TARSEL        the program (default: build/release/bin/tarsel)
#   THUMBSUP      the command (default: thumbsup; `npm install thumbsup` makes node_modules/.bin/thumbsup)
set -euo pipefail
project=$(cd "$(dirname "$0")/.." && pwd)
corpus=${BENCH_CORPUS:?set BENCH_CORPUS to a folder of JPEG files}
tarsel=${TARSEL:-$project/build/release/bin/tarsel}
files=${FILES:-500}
thumbsup=${THUMBSUP:-thumbsup}
work=$(mktemp -d -p "${TMPDIR:-/tmp}")
trap 'rm -rf "$work"' EXIT

mapfile -t pictures < <(find "$(realpath "$corpus")" -maxdepth 1 -name '*.jpg' | sort)
[ "${#pictures[@]}" -gt 0 ] || { echo "no JPEG files in $corpus" >&2; exit 1; }
mkdir "$work/in"
for ((i = 0; i < files; i++)); do
    ln "${pictures[i % ${#pictures[@]}]}" "$work/in/$(printf 'p%05d.jpg' "$i")" 2>/dev/null ||
        cp "${pictures[i % ${#pictures[@]}]}" "$work/in/$(printf 'p%05d.jpg' "$i")"
done

times_of() { # COMMAND...: CPU and wall seconds of it and its children
    local TIMEFORMAT='%U %S %R' times
    times=$({ time "$@" >"$work/log" 2>&1 </dev/null || { tail -n 5 "$work/log" >&3; exit 1; }; } 3>&2 2>&1)
    echo "$times" | tail -n 1 | awk '{ print $1 + $2, $3 }'
}
median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

row() { # NAME COMMAND...: the last argument is a folder that must not be there before
    local name=$1 out="${*: -1}" cpu wall
    shift
    command -v "$1" >/dev/null || return 0
    : >"$work/times"
    for _ in $(seq "${RUNS:-1}"); do
        [ -n "${keep:-}" ] || rm -rf "$out"
        times_of "$@" >>"$work/times"
    done
    cpu=$(cut -d' ' -f1 "$work/times" | median)
    wall=$(cut -d' ' -f2 "$work/times" | median)
    base_cpu=${base_cpu:-$cpu} base_wall=${base_wall:-$wall}
    awk -v n="$name" -v c="$cpu" -v w="$wall" -v bc="$base_cpu" -v bw="$base_wall" \
        -v p="$(find "$out" -type f -size +0 -name '*.jp*g' | wc -l)" -v m="$(du -sm "$out" | cut -f1)" \
        'BEGIN { printf "  %-34s %8.1f %8.1f %8.2f %8.2f %8d %8d\n", n, c, w, c / bc, w / bw, p, m }'
}

ours() { "$tarsel" album --only-changed --template "$1" --out "$2" "$work"/in/*.jpg; }
fgallery_into() { fgallery -j "$(nproc)" "$work/in" "$1"; }
thumbsup_into() { "$thumbsup" --input "$work/in" --output "$1" --photo-download copy; }

echo "$files pictures, $(nproc) cores, load $(cut -d' ' -f1 /proc/loadavg)"
printf '  %-34s %8s %8s %8s %8s %8s %8s\n' '' 'CPU s' 'wall s' 'CPU x' 'wall x' JPEGs MB
row 'tarsel, modern' ours modern "$work/modern"
keep=1 row '  again, nothing changed' ours modern "$work/modern"
row 'tarsel, exact' ours exact "$work/exact"
rm -rf "$work/modern" "$work/exact"
if command -v "$thumbsup" >/dev/null; then row 'thumbsup' thumbsup_into "$work/thumbsup"; fi
rm -rf "$work/thumbsup"
if command -v fgallery >/dev/null; then row 'fgallery' fgallery_into "$work/fgallery"; fi
