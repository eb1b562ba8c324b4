#!/bin/bash
# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
# Imports the sample portfolio's export for GnuCash and KMyMoney into both programs as a user
# would, on a virtual display, saves their books and checks that every price, purchase and cost
# arrived (scripts/check-finance-books.py). A developer's check: the programs are large desktop
# packages, so the test command does not run it.
#
#   bash scripts/check-finance-export.sh [BUILD-DIR] [YYYY-MM]
#
# Needs: gnucash kmymoney xvfb openbox xdotool xclip imagemagick (for the screenshots it leaves).
# The clicks are at places measured on GnuCash 4.13 and KMyMoney 5.1.3 at the window sizes set
# here; another version may need them measured again (each step leaves a screenshot).
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD=${1:-build}
AS_OF=${2:-$(date -d "$(date +%Y-%m-01) -1 month" +%Y-%m)}
WORK=$(mktemp -d /tmp/quillmere-finance.XXXXXX)
DISPLAY_NUMBER=${DISPLAY_NUMBER:-77}
export DISPLAY=:$DISPLAY_NUMBER LANG=C.UTF-8 LC_ALL=C.UTF-8

for program in gnucash kmymoney Xvfb openbox xdotool xclip import; do
    command -v $program > /dev/null || { echo "check-finance-export: $program is missing" >&2; exit 2; }
done

Xvfb :$DISPLAY_NUMBER -screen 0 1600x1000x24 > "$WORK/xvfb.log" 2>&1 &
XVFB=$!
trap 'kill $XVFB 2>/dev/null; pkill -f "gnucash $WORK" 2>/dev/null; pkill -f "kmymoney $WORK" 2>/dev/null; true' EXIT
sleep 2
openbox > "$WORK/openbox.log" 2>&1 &
sleep 1

step=0
shot() { step=$((step + 1)); import -window root "$WORK/step-$(printf %02d $step)-$1.png"; }
waitfor() { timeout ${2:-60} xdotool search --sync --name "$1" | tail -1; }
activate() { local w; w=$(waitfor "$1" "${2:-60}"); xdotool windowactivate --sync "$w" 2>/dev/null || xdotool windowfocus --sync "$w"; sleep 0.5; echo "$w"; }
click() { xdotool mousemove "$1" "$2" click 1; sleep "${3:-0.7}"; }
keys() { xdotool key "$@"; sleep 0.7; }
place() { local w; w=$(activate "$1"); xdotool windowmove "$w" "$2" "$3"; [ -n "${4:-}" ] && xdotool windowsize "$w" "$4" "$5"; sleep 1; }

QUILLMERE_DATABASE=$BUILD/data/bondvalues.bvdb "$BUILD/src/cli/quillmere-cli" export-finance \
    examples/sample.bondportfolio "$WORK" --as-of "$AS_OF" --people examples/people.vcf | tee "$WORK/export.txt"

gnucash_run() {
    local book=$WORK/book.gnucash
    python3 scripts/check-finance-books.py new-gnucash "$book"
    HOME=$WORK/gnucash-home gnucash "$book" > "$WORK/gnucash.log" 2>&1 &
    activate "Accounts - GnuCash" 120 > /dev/null
    sleep 5
    for w in $(xdotool search --name "Tip Of The Day" 2>/dev/null); do xdotool windowclose "$w" 2>/dev/null || true; done
    activate "Accounts - GnuCash" > /dev/null
    keys alt+f i q
    place "Import QIF files" 0 0 1200 600
    keys alt+n
    activate "Select a QIF file to load" > /dev/null
    click 1130 155 2
    activate "Select QIF File" > /dev/null; sleep 1
    keys ctrl+l; sleep 1; xdotool type --delay 20 "$WORK/Bonds.qif"; keys Return
    activate "Select a QIF file to load" > /dev/null
    keys alt+n
    activate "Load QIF files" > /dev/null
    click 1049 133 5; shot gnucash-loaded
    for page in "QIF files you have loaded" "Accounts and stock holdings" "Match QIF accounts" \
                "Choose the QIF file currency" "Tradable commodities"; do
        activate "$page" > /dev/null; shot gnucash-page; click 1143 584 2
    done
    w=$(waitfor "New Book Options" 30); xdotool windowclose "$w" 2>/dev/null || { xdotool windowactivate --sync "$w"; keys Escape; }
    activate "QIF Import" > /dev/null
    click 996 133 8
    activate "Update your GnuCash accounts" > /dev/null; click 1143 584 4
    activate "Qif Import Summary" > /dev/null; shot gnucash-qif-done; click 1147 584 2

    activate "Accounts - GnuCash" > /dev/null
    keys alt+f i p
    place "Price Import Assistant" 0 0 1500 900
    keys Return
    activate "Select File for Import" > /dev/null; sleep 2
    keys ctrl+l; sleep 1; xdotool type --delay 20 "$WORK/BondPrices.csv"; sleep 1; shot gnucash-price-file; keys Return
    activate "Import Preview" > /dev/null; sleep 2
    # Column types (Date, Amount, From Namespace, From Symbol, Currency To), dates m-d-y, one
    # leading line skipped.
    click 300 431 1; click 244 463
    click 475 431 1; click 475 492
    click 650 431 1; click 650 550
    click 825 431 1; click 825 521
    click 1000 431 1; click 1000 579
    click 833 183 1; click 776 244
    click 850 270 2; shot gnucash-price-columns
    click 1443 884 2
    activate "Import Prices Now" > /dev/null; click 1443 884 5
    activate "Import Summary" > /dev/null; shot gnucash-prices-done; click 1446 884 2
    activate "Accounts - GnuCash" > /dev/null
    keys ctrl+s; sleep 4; keys ctrl+q; sleep 4
}

kmymoney_run() {
    local book=$WORK/book.kmy
    python3 scripts/check-finance-books.py new-kmymoney "$book"
    HOME=$WORK/kmymoney-home kmymoney "$book" > "$WORK/kmymoney.log" 2>&1 &
    activate "book.kmy" 120 > /dev/null
    sleep 5
    for w in $(xdotool search --name "Tip of the Day" 2>/dev/null); do xdotool windowclose "$w" 2>/dev/null || true; done
    activate "book.kmy" > /dev/null
    keys alt+f i q
    place "QIF Import" 100 100
    printf '%s' "$WORK/Bonds.qif" | xclip -selection clipboard
    click 410 260; keys ctrl+v
    click 443 356 1; click 300 381
    shot kmymoney-import; click 557 540 6
    activate "Statement import statistics" > /dev/null; shot kmymoney-imported; keys Return
    activate "book.kmy" > /dev/null
    keys ctrl+s; sleep 3
    if w=$(waitfor "Consistency check result" 15); then xdotool windowactivate --sync "$w"; keys Return; fi
    sleep 3; activate "book.kmy" > /dev/null; keys ctrl+q; sleep 4
}

gnucash_run
kmymoney_run
status=0
python3 scripts/check-finance-books.py check-gnucash "$WORK/book.gnucash" "$WORK" "$AS_OF" || status=1
python3 scripts/check-finance-books.py check-kmymoney "$WORK/book.kmy" "$WORK" "$AS_OF" || status=1
echo "Books, exported files and screenshots: $WORK"
exit $status
