#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the built package into a fresh Debian 12 root as a user would (apt-get install
# ./quillmere_*.deb, which fetches its dependencies from Debian's archive) and runs it there: the
# command line on the installed sample, the window's binary, the manual pages, and the MIME and
# desktop databases dpkg's triggers refresh. Needs root and mmdebstrap (bash scripts/install-deps.sh
# mmdebstrap); downloads about 150 MB of Debian packages. Build the package first:
#   cmake --build build --target package
# Usage: bash scripts/check-installed-package.sh [quillmere_VERSION_ARCH.deb]
set -euo pipefail
cd "$(dirname "$0")/.."
deb=${1:-$(ls -t build/quillmere_*.deb 2>/dev/null | head -n 1)}
if [ -z "$deb" ] || [ ! -f "$deb" ]; then
  echo "check-installed-package.sh: no package; run: cmake --build build --target package" >&2
  exit 1
fi
# The same archive this machine installs from, whatever mirror its apt uses.
sources=()
for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/*.sources; do
  if [ -s "$file" ] && grep -Eq '^[^#]*(deb |Types:)' "$file"; then sources+=("$file"); fi
done

# Runs inside the new root, after the package is installed.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cat > "$work/checks.sh" <<'CHECKS'
set -eu
fail() { echo "FAILED: $*" >&2; exit 1; }
export HOME=/tmp/home QT_QPA_PLATFORM=offscreen
mkdir -p "$HOME"
for program in /usr/bin/quillmere /usr/bin/quillmere-cli; do
  if ldd "$program" | grep "not found"; then fail "$program lacks libraries"; fi
done
quillmere-cli --version
quillmere --version
quillmere-cli value --series EE --face 100 --issued 1990-01 --as-of 2021-11 | tee /tmp/value.txt
grep -q '207\.36' /tmp/value.txt || fail "the seed database gives another value"
quillmere-cli show /usr/share/doc/quillmere/examples/sample.bondportfolio | tee /tmp/show.txt
grep -q Whitfield /tmp/show.txt || fail "show does not name the sample's people"
test -f "$HOME/.local/share/larchfield/Quillmere/bondvalues.bvdb" || fail "no working copy of the seed"
zcat /usr/share/man/man1/quillmere-cli.1.gz | grep -q '^\.SH ENVIRONMENT' || fail "no manual page"
# The databases follow the package through dpkg's file triggers, also once their tools are installed.
registered() {
  test -f /usr/share/mime/application/x-quillmere-bondportfolio.xml &&
    grep -q 'x-quillmere-bondportfolio=org.larchfield.Quillmere.desktop' /usr/share/applications/mimeinfo.cache
}
registered || fail "MIME or desktop database not refreshed on install"
dpkg --remove quillmere
if registered; then fail "MIME or desktop database still names the program once removed"; fi
dpkg --install /tmp/quillmere_*.deb
registered || fail "MIME or desktop database not refreshed on installing again"
echo "The installed package works."
CHECKS
cp "$deb" "$work/"

mmdebstrap --variant=apt --mode=root bookworm /dev/null "${sources[@]}" \
  --customize-hook="copy-in $work/$(basename "$deb") $work/checks.sh /tmp" \
  --customize-hook='chroot "$1" env DEBIAN_FRONTEND=noninteractive apt-get install -y -o APT::Install-Recommends=true /tmp/'"$(basename "$deb")" \
  --customize-hook='chroot "$1" sh /tmp/checks.sh'
