#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
# Writes what the command-line program says about the sample, a generated 1,000-holding portfolio
# and a portfolio written by Python's own property-list writer, into OUT: run before and after a
# change that must not change behaviour, then `diff -r` the two folders.
# Usage: scripts/record-outputs.sh OUT [CLI]
set -euo pipefail
cd "$(dirname "$0")/.."
out=$1
cli=${2:-build/src/cli/quillmere-cli}
export QUILLMERE_DATABASE="${QUILLMERE_DATABASE:-$PWD/build/data/bondvalues.bvdb}"
people=examples/people.vcf
mkdir -p "$out"
python3 scripts/generate-portfolio.py 1000 "$out/thousand.bondportfolio"
python3 scripts/generate-portfolio.py 12 "$out/small.bondportfolio" 7
for name in sample thousand small; do
  file=$out/$name.bondportfolio
  [ "$name" = sample ] && file=examples/sample.bondportfolio
  "$cli" show "$file" --people $people > "$out/$name.show.txt"
  "$cli" show "$file" --people $people --json > "$out/$name.show.json"
  "$cli" show "$file" --people $people --json --as-of 2010-06 > "$out/$name.show-2010-06.json"
  "$cli" show "$file" --people $people --json --yearly > "$out/$name.show-yearly.json"
  "$cli" show "$file" --people $people --yearly --as-of 2010-06 > "$out/$name.show-yearly-2010-06.txt"
  "$cli" export-csv "$file" "$out/$name.csv" --people $people > /dev/null
  "$cli" export-csv "$file" "$out/$name-2010-06.csv" --as-of 2010-06 --people $people > /dev/null
  mkdir -p "$out/$name-qif"
  "$cli" export-qif "$file" "$out/$name-qif" --people $people > /dev/null
done
# The JSON names the file it read; name the generated ones the same way whatever OUT is.
sed -i "s|$out/|OUT/|g" "$out"/*.json
