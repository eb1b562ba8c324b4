#!/usr/bin/env bash
# Installs what the build needs, builds the programs and the redemption value database, and runs
# the main job on the bundled sample portfolio and database.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQUILLMERE_BUILD_TESTS=OFF -DQUILLMERE_BUILD_BENCHMARKS=OFF
cmake --build build -j"$(nproc)"
# Use the freshly built database, so that a working copy from an older build is not read.
export QUILLMERE_DATABASE="${QUILLMERE_DATABASE:-$PWD/build/data/bondvalues.bvdb}"
cli=build/src/cli/quillmere-cli
"$cli" database
echo
"$cli" value --series EE --face 100 --issued 1990-01 --as-of 2021-11
if [ -f examples/sample.bondportfolio ]; then
  echo
  QUILLMERE_PEOPLE="${QUILLMERE_PEOPLE:-$PWD/examples/people.vcf}" "$cli" show examples/sample.bondportfolio "$@"
fi
