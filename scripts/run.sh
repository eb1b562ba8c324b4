#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what the build needs, builds the programs and the redemption value database, and runs
# the main job on the bundled sample portfolio and database: the portfolio window when a display
# is available, the same figures in the terminal otherwise.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build -j"$(nproc)" --target quillmere quillmere-cli bondvalues_database
# Use the freshly built database, so that a working copy from an older build is not read.
export QUILLMERE_DATABASE="${QUILLMERE_DATABASE:-$PWD/build/data/bondvalues.bvdb}"
cli=build/src/cli/quillmere-cli
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && [ "$#" -eq 0 ]; then
  echo "Opening examples/sample.bondportfolio in the portfolio window (database: $QUILLMERE_DATABASE)."
  exec build/src/app/quillmere examples/sample.bondportfolio
fi
"$cli" database
echo
"$cli" value --series EE --face 100 --issued 1990-01 --as-of 2021-11
if [ -f examples/sample.bondportfolio ]; then
  echo
  "$cli" show examples/sample.bondportfolio "$@"
fi
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  echo
  echo "No display here, so the portfolio window was not opened. On a desktop, run this command again,"
  echo "or: QUILLMERE_DATABASE=$QUILLMERE_DATABASE build/src/app/quillmere examples/sample.bondportfolio"
  echo "(bash scripts/screenshot.sh draws the window under Xvfb into docs/screenshot.png)."
fi
