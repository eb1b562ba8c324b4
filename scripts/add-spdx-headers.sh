#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
# Puts the licence's SPDX header at the top of every source file the project wrote (C++, CMake,
# shell and Python; a script's #! line stays first). A file that already names its licence is left
# alone, so running this again changes nothing. data/ is public domain and is not touched.
# Usage: bash scripts/add-spdx-headers.sh [REPOSITORY]   (default: this repository)
set -euo pipefail
root=${1:-"$(dirname "$0")/.."}
cd "$root"
licence="SPDX-License-Identifier: GPL-3.0-or-later"
holder="SPDX-FileCopyrightText: 2026 Larchfield"
changed=0
while IFS= read -r -d '' file; do
  if head -n 5 "$file" | grep -q "SPDX-License-Identifier:"; then continue; fi
  case "$file" in
    *.cpp|*.h) mark="//" ;;
    *) mark="#" ;;
  esac
  header="$mark $holder"$'\n'"$mark $licence"
  tmp=$(mktemp)
  if [ "$(head -c 2 "$file")" = "#!" ]; then
    { head -n 1 "$file"; printf '%s\n' "$header"; tail -n +2 "$file"; } > "$tmp"
  else
    { printf '%s\n' "$header"; cat "$file"; } > "$tmp"
  fi
  chmod --reference="$file" "$tmp"
  mv "$tmp" "$file"
  changed=$((changed + 1))
done < <(find src tests bench fuzz cmake scripts .ci CMakeLists.txt -type f \
           \( -name '*.cpp' -o -name '*.h' -o -name '*.py' -o -name '*.sh' -o -name '*.cmake' \
              -o -name 'CMakeLists.txt' -o -path '.ci/run' \) -print0 2>/dev/null)
echo "add-spdx-headers.sh: $changed files given a header"
