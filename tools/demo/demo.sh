#!/usr/bin/env bash
# Plays tools/demo/demo.script on the script front-end and shows what Tolmen did: its transcript,
# and a sample Pastel set built with pasteldata.
set -euo pipefail
BUILD=${1:-build}
HERE=$(cd "$(dirname "$0")" && pwd)
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
export TOLMEN_HOME="$WORK/home" XDG_CONFIG_HOME="$WORK/config"
export TOLMEN_NOW="2026-11-23 09:00:00"

echo "== Sample Pastel set of accounts (pasteldata)"
"$BUILD/bin/pasteldata" create "$WORK/pastel" < "$HERE/../pasteldata/samples/demo.json"
ls "$WORK/pastel"

echo
echo "== Tolmen on the script front-end"
TOLMEN_UI=script TOLMEN_SCRIPT="$HERE/demo.script" TOLMEN_TRANSCRIPT="$WORK/transcript.txt" \
  "$BUILD/bin/tolmen"
echo "exit status $?"
echo
echo "== Transcript"
cat "$WORK/transcript.txt"
