#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# One picture saved by `tarsel encode` and by other programs with settings that mean the same, in one run: bytes, PSNR and
# SSIM of the file against the picture by `picture_similarity`, and the median of the wall times. Programs that are not
# installed are left out.
#   PICTURES  files, best ones that were never compressed with losses (needed)
#   RUNS      runs of each command (default 3)
#   TARSEL    the program (default: build/release/bin/tarsel)
set -euo pipefail
project=$(cd "$(dirname "$0")/.." && pwd)
tarsel=${TARSEL:-$project/build/release/bin/tarsel}
similarity=${SIMILARITY:-$(dirname "$tarsel")/picture_similarity}
runs=${RUNS:-3}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

milliseconds() { # COMMAND...: median over the runs
    local start
    for _ in $(seq "$runs"); do
        start=$(date +%s%N)
        "$@" >/dev/null 2>"$work/log" || { cat "$work/log" >&2; return 1; }
        echo $((($(date +%s%N) - start) / 1000000))
    done | sort -n | sed -n "$(((runs + 1) / 2))p"
}

row() { # NAME OUTPUT COMMAND...
    local name=$1 time
    out=$work/$2
    shift 2
    command -v "$1" >/dev/null || return 0
    time=$(milliseconds "$@")
    # shellcheck disable=SC2046 # two words
    printf '  %-42s %9d %8s %7s %6d\n' "$name" "$(stat -c %s "$out")" $("$similarity" in.bmp "$out") "$time"
}

for picture in ${PICTURES:?set PICTURES to files}; do
    convert "$picture" -alpha off -strip BMP3:"$work/in.bmp"
    convert "$work/in.bmp" -define png:compression-level=1 "$work/in.png"
    identify -format '%f, %w x %h\n' "$picture"
    printf '  %-42s %9s %8s %7s %6s\n' '' bytes PSNR SSIM ms
    cd "$work"
    row 'JPEG of quality 80: tarsel' a.jpg "$tarsel" encode --quality 80 in.bmp a.jpg
    row 'cjpeg' b.jpg cjpeg -quality 80 -outfile b.jpg in.bmp
    row 'ImageMagick' c.jpg convert in.bmp -quality 80 -sampling-factor 4:2:0 c.jpg
    row 'progressive: tarsel' d.jpg "$tarsel" encode --quality 80 --progressive in.bmp d.jpg
    row 'cjpeg' e.jpg cjpeg -quality 80 -progressive -outfile e.jpg in.bmp
    row 'JPEG of at most 100 KB: tarsel' f.jpg "$tarsel" encode --max-size 100K --min-quality 1 in.bmp f.jpg
    row 'ImageMagick' g.jpg convert in.bmp -define jpeg:extent=100KB -sampling-factor 4:2:0 g.jpg
    row 'jpegoptim, from quality 100' h.jpg sh -c \
        'cjpeg -quality 100 -outfile h.jpg in.bmp && jpegoptim -q --size=100k h.jpg'
    row 'PNG of 256 colours: tarsel' i.png "$tarsel" encode --colors 256-colors in.bmp i.png
    row 'pngquant' j.png pngquant --force --output j.png 256 in.png
    row 'ImageMagick' k.png convert in.bmp -colors 256 PNG8:k.png
    row 'GIF: tarsel' l.gif "$tarsel" encode in.bmp l.gif
    row 'ImageMagick' m.gif convert in.bmp -colors 256 m.gif
    row 'PNG: tarsel' n.png "$tarsel" encode in.bmp n.png
    row 'ImageMagick' o.png convert in.bmp o.png
    cd - >/dev/null
done
