#!/usr/bin/env bash
# Draws the run's animation, data/kelbor.gif: a sheet that leaves the address card, arcs over and
# drops into the ledger, in 12 frames of 240 by 64 pixels, looping. Needs rsvg-convert
# (librsvg2-bin) and convert (imagemagick); the GIF is committed, so a build needs neither.
set -euo pipefail
HERE=$(cd "$(dirname "$0")" && pwd)
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
FRAMES=12
for i in $(seq 0 $((FRAMES - 1))); do
  # The sheet's centre along a half-ellipse from x 58 to x 182, highest at the middle.
  read -r x y angle < <(awk -v i="$i" -v n="$FRAMES" 'BEGIN {
    t = i / (n - 1); pi = atan2(0, -1)
    printf "%.1f %.1f %.1f\n", 58 + 124 * t, 40 - 30 * sin(pi * t), -25 + 50 * t }')
  cat > "$WORK/frame.svg" <<SVG
<svg xmlns="http://www.w3.org/2000/svg" width="240" height="64" viewBox="0 0 240 64">
  <rect width="240" height="64" fill="#ffffff"/>
  <rect x="8" y="14" width="44" height="34" rx="5" fill="#2f6db5"/>
  <circle cx="21" cy="27" r="6" fill="#ffffff"/>
  <path d="M12 43 q9 -12 18 0 z" fill="#ffffff"/>
  <rect x="34" y="23" width="13" height="3" rx="1.5" fill="#cfe0f5"/>
  <rect x="34" y="30" width="10" height="3" rx="1.5" fill="#cfe0f5"/>
  <rect x="188" y="14" width="44" height="36" rx="5" fill="#3b8c4a"/>
  <rect x="194" y="21" width="32" height="3" fill="#d6ecd9"/>
  <rect x="194" y="28" width="32" height="3" fill="#d6ecd9"/>
  <rect x="194" y="35" width="32" height="3" fill="#d6ecd9"/>
  <rect x="194" y="42" width="20" height="3" fill="#d6ecd9"/>
  <g transform="translate($x $y) rotate($angle)">
    <rect x="-8" y="-10" width="16" height="20" rx="1.5" fill="#fff6e8" stroke="#e0902f" stroke-width="2"/>
    <rect x="-4" y="-5" width="8" height="2" fill="#e0902f"/>
    <rect x="-4" y="-1" width="8" height="2" fill="#e0902f"/>
    <rect x="-4" y="3" width="5" height="2" fill="#e0902f"/>
  </g>
</svg>
SVG
  rsvg-convert -o "$WORK/$(printf 'f%02d' "$i").png" "$WORK/frame.svg"
done
convert -delay 8 -loop 0 "$WORK"/f*.png -layers Optimize "$HERE/../kelbor.gif"
