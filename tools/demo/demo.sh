#!/usr/bin/env bash
# A whole transfer on the script front-end: a sample Pastel set (pasteldata), a sample address book
# served by maxsim, a template, and a script that opens the template in the wizard, presses Import
# and answers the dialogs. Shows the transcript, the customer import file, the run log and the
# UDFs the run changed in Maximizer. Then a second template bills the same book monthly and shows
# the invoice import file and the Date Billed values the run wrote.
set -euo pipefail
BUILD=${1:-build}
BIN="$BUILD/bin"
HERE=$(cd "$(dirname "$0")" && pwd)
WORK=$(mktemp -d)
MAXSIM_PID=
cleanup() {
  [ -n "$MAXSIM_PID" ] && kill "$MAXSIM_PID" 2>/dev/null && wait "$MAXSIM_PID" 2>/dev/null
  [ -n "${DEMO_KEEP:-}" ] || rm -rf "$WORK"
}
trap cleanup EXIT
source "$HERE/world.sh"
world_env "$WORK"

echo "== Pastel set of accounts in $WORK/pastel (pasteldata)"
"$BIN/pasteldata" create "$WORK/pastel" < "$HERE/../pasteldata/samples/demo.json"
ls "$WORK/pastel"

echo
echo "== Maximizer address book in $WORK/maximizer (maxsim)"
"$BIN/maxsim" init "$WORK/maximizer" --from "$HERE/../maxsim/samples/demo.json"
start_maxsim "$BIN" "$WORK"
"$BIN/maxsim" dump "$WORK/maximizer" > "$WORK/before.json"

# The template: the Pastel folder, every client of the address book marked "Yes" in the UDF
# "Import to Pastel", categories from the UDF "Customer Category", account numbers in the UDF
# "Account Number" (new ones are proposed from the names and written back).
place_template demo "$HERE" "$WORK"

echo
echo "== Tolmen on the script front-end ($HERE/demo.script)"
status=0
TOLMEN_UI=script TOLMEN_SCRIPT="$WORK/demo.script" TOLMEN_TRANSCRIPT="$WORK/transcript.txt" \
  "$BIN/tolmen" || status=$?
echo "exit status $status"
echo
echo "== Transcript"
cat "$WORK/transcript.txt"
echo
# The files are Windows-1252 with CR LF, as Pastel reads them; shown here in UTF-8.
show() { tr -d '\r' < "$1" | iconv -f WINDOWS-1252 -t UTF-8 | sed 's/\x0/^@/g'; }
for csv in "$WORK"/pastel/MaxCus*.csv; do
  echo "== $(basename "$csv") (NUL bytes shown as ^@)"
  show "$csv"
done
echo
echo "== Run log Tolmen.LOG"
show "$WORK/pastel/Tolmen.LOG"
echo
echo "== UDFs changed in Maximizer"
"$BIN/maxsim" dump "$WORK/maximizer" > "$WORK/after.json"
{ diff "$WORK/before.json" "$WORK/after.json" || true; } | grep -E '^[<>]' | grep -v last_change ||
  echo "(none)"
echo
echo "== The linked UDFs after the run (the template's \"To Maximizer\" links)"
# KARO1 is shorter than six characters, so its figures are read from Pastel; a six-character code
# takes the figures of the debtor line the run has just made: zero balances and Pastel's default
# credit limit.
awk -F'"' '/"clients"/ { inClients = 1 }
  inClients && /"(Client_Name|Last_Name)"/ { name = $4 }
  inClients && /"(Pastel Balance|Aging Current|Aging 30 Days|Credit Limit)"/ {
    printf "  %-30s %-15s %s\n", name, $2, $4 }' "$WORK/after.json"

echo
echo "== Recurring billing: the template billing.KTF bills monthly at the prices of the settings store"
# Prices by category (excluding tax); Farming is not billed (-1), Services has no price.
mkdir -p "$XDG_CONFIG_HOME/Vellumator7"
printf '[Billing]\nRetail=100\nWholesale=250\nFarming=-1\n' >> "$XDG_CONFIG_HOME/Vellumator7/settings.ini"
place_template billing "$HERE" "$WORK"
"$BIN/maxsim" dump "$WORK/maximizer" > "$WORK/before-billing.json"
status=0
TOLMEN_UI=script TOLMEN_SCRIPT="$WORK/billing.script" TOLMEN_TRANSCRIPT="$WORK/billing.txt" \
  "$BIN/tolmen" || status=$?
echo "exit status $status"
cat "$WORK/billing.txt"
for csv in "$WORK"/pastel/MaxInv*.csv; do
  echo "== $(basename "$csv") (NUL bytes shown as ^@)"
  show "$csv"
done
echo
echo "== The billing lines of the run log"
show "$WORK/pastel/Tolmen.LOG" | sed -n '/Recurring Billing ON/,$p' | grep -E 'Billing|Invoice|Invoiced|ERROR|Error'
echo
echo "== Date Billed after the billing run"
"$BIN/maxsim" dump "$WORK/maximizer" > "$WORK/after-billing.json"
awk -F'"' '/"clients"/ { inClients = 1 }
  inClients && /"(Client_Name|Last_Name)"/ { name = $4 }
  inClients && /"(Date Billed|Doc Numbers)"/ { printf "  %-30s %-12s %s\n", name, $2, $4 }' \
  "$WORK/after-billing.json"
