#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the Debian 12 packages the build and the tests need. Harmless when they are present.
set -euo pipefail
SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
packages=(
  build-essential cmake ninja-build pkg-config
  qt6-base-dev qt6-base-dev-tools libqt6sql6-sqlite qt6-svg-dev qt6-charts-dev libqt6opengl6-dev
  qt6-tools-dev qt6-l10n-tools
  libgl-dev
  libsqlite3-dev sqlite3 libplist-dev poppler-utils
  libgtest-dev libgmock-dev libbenchmark-dev
  python3 clang libclang-rt-14-dev
  dpkg-dev appstream desktop-file-utils groff-base
)
# Extra packages named on the command line (e.g. by the test script).
packages+=("$@")
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ "${#missing[@]}" -gt 0 ]; then
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update
  $SUDO apt-get install -y --no-install-recommends "${missing[@]}"
fi
