#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
# Draws the portfolio window on the sample portfolio under a virtual display (Xvfb) and writes
# docs/screenshot.png. Needs the packages xvfb, xdotool and imagemagick.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh xvfb xdotool imagemagick x11-utils
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build -j"$(nproc)" --target quillmere bondvalues_database
export QUILLMERE_DATABASE="$PWD/build/data/bondvalues.bvdb"
# The picture shows the window, not an offer of new values from the network.
export QUILLMERE_FISCAL_DATA_URL=http://127.0.0.1:9/
# A settings folder of its own: the picture shows the designed columns, not this user's.
settings=$(mktemp -d)
trap 'rm -rf "$settings"' EXIT
export XDG_CONFIG_HOME="$settings"
mkdir -p docs
xvfb-run -a -s "-screen 0 1440x800x24" bash -c '
  build/src/app/quillmere examples/sample.bondportfolio &
  pid=$!
  for _ in $(seq 50); do
    window=$(xdotool search --name "sample" 2>/dev/null | head -1 || true)
    [ -n "$window" ] && break
    sleep 0.2
  done
  [ -n "$window" ] || { echo "screenshot.sh: the window did not appear" >&2; kill $pid; exit 1; }
  xdotool windowmove "$window" 0 0 windowsize "$window" 1440 800
  sleep 1.5
  import -window "$window" docs/screenshot.png
  kill $pid
'
echo "wrote docs/screenshot.png"
