#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs what the build needs, builds everything and runs every test. The tests are switched on
# whatever an earlier configuration of build/ said, and the command fails when no test ran at all.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
# The CSV export is checked by opening it in LibreOffice Calc; only the tests need it.
bash scripts/install-deps.sh libreoffice-calc-nogui
build=build
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQUILLMERE_BUILD_TESTS=ON
cmake --build "$build" -j"$(nproc)"
cd "$build"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
set +e
QT_QPA_PLATFORM=offscreen ctest --output-on-failure --no-tests=error -j"$(nproc)" 2>&1 | tee "$log"
status=${PIPESTATUS[0]}
set -e
if [ "$status" -ne 0 ]; then
  exit "$status"
fi
if ! grep -Eq '^[0-9]+% tests passed, 0 tests failed out of [1-9][0-9]*' "$log"; then
  echo "scripts/test.sh: no test ran; the test suite is not built in $build" >&2
  exit 1
fi
