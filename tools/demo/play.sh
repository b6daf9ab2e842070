#!/usr/bin/env bash
# The demo's first run in a world of its own, on a front-end of choice:
#   play.sh BUILD UI OUT
# makes a sample Pastel set and a sample address book (served by maxsim) under OUT, opens
# demo.KTF with demo.script on the front-end UI (script or qt) and leaves OUT/transcript.txt,
# the Pastel folder OUT/pastel (import files, run log) and OUT/status (tolmen's exit status).
# TOLMEN_SCREENSHOTS passes through to the Qt window. OUT is emptied first.
set -euo pipefail
BUILD=$1
UI=$2
OUT=$3
BIN="$BUILD/bin"
HERE=$(cd "$(dirname "$0")" && pwd)
rm -rf "$OUT"
mkdir -p "$OUT"
OUT=$(cd "$OUT" && pwd)
MAXSIM_PID=
cleanup() { [ -n "$MAXSIM_PID" ] && kill "$MAXSIM_PID" 2>/dev/null && wait "$MAXSIM_PID" 2>/dev/null; true; }
trap cleanup EXIT
source "$HERE/world.sh"
world_env "$OUT"

"$BIN/pasteldata" create "$OUT/pastel" < "$HERE/../pasteldata/samples/demo.json" > /dev/null
"$BIN/maxsim" init "$OUT/maximizer" --from "$HERE/../maxsim/samples/demo.json" > /dev/null
start_maxsim "$BIN" "$OUT"
place_template demo "$HERE" "$OUT"

status=0
TOLMEN_UI="$UI" TOLMEN_SCRIPT="$OUT/demo.script" TOLMEN_TRANSCRIPT="$OUT/transcript.txt" \
  "$BIN/tolmen" || status=$?
echo "$status" > "$OUT/status"
