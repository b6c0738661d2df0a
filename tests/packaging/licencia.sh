#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Every source file says its licence in its first lines, so that a file copied out of the
# tree still carries it.
#   licencia.sh SOURCE_DIR            lists the files without it (and fails)
#   licencia.sh SOURCE_DIR --poner    writes the line into them
set -euo pipefail
cd "$1"
faltan=()
while IFS= read -r f; do
    head -n 3 "$f" | grep -q 'SPDX-License-Identifier:' || faltan+=("$f")
done < <(git ls-files -co --exclude-standard -- '*.cpp' '*.h' '*.h.in' '*.xml.in' '*.sh' \
             '*.cmake' 'CMakeLists.txt' '*/CMakeLists.txt' '.ci/run' '*.desktop' '*.1')
[ ${#faltan[@]} -eq 0 ] && exit 0
if [ "${2:-}" != "--poner" ]; then
    printf 'Sin línea SPDX-License-Identifier: %s\n' "${faltan[@]}" >&2
    exit 1
fi
for f in "${faltan[@]}"; do
    case $f in
    *.cpp | *.h | *.h.in) linea='// SPDX-License-Identifier: GPL-3.0-or-later' ;;
    *.1) linea='.\\" SPDX-License-Identifier: GPL-3.0-or-later' ;;
    *) linea='# SPDX-License-Identifier: GPL-3.0-or-later' ;;
    esac
    if head -n 1 "$f" | grep -q '^#!'; then
        sed -i "1a $linea" "$f"
    else
        sed -i "1i $linea" "$f"
    fi
done
