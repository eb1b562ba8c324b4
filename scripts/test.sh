#!/usr/bin/env bash
# Installs what the build needs, builds everything and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
# The CSV export is checked by opening it in LibreOffice Calc; only the tests need it.
bash scripts/install-deps.sh libreoffice-calc-nogui
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build -j"$(nproc)"
cd build
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j"$(nproc)"
