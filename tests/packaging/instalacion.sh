#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# What an operator's machine receives: the install tree under a prefix, the menu entry and
# metainfo as the desktop's validators read them, the man page as groff reads it, and the
# Debian package with its files and what it depends on.
#   instalacion.sh BUILD_DIR
set -euo pipefail
build=$1
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
falla() { echo "FALLA: $*" >&2; exit 1; }

id=ar.carancho.radiolog
esperados="bin/carancho-radiolog
share/applications/$id.desktop
share/doc/carancho-radiolog/README.md
share/doc/carancho-radiolog/changelog.gz
share/doc/carancho-radiolog/copyright
share/icons/hicolor/128x128/apps/$id.png
share/icons/hicolor/256x256/apps/$id.png
share/icons/hicolor/48x48/apps/$id.png
share/icons/hicolor/scalable/apps/$id.svg
share/man/man1/carancho-radiolog.1.gz
share/metainfo/$id.metainfo.xml"
[ -f "$build/AyudaRadiolog2.pdf" ] && esperados=$(printf '%s\nshare/carancho-radiolog/AyudaRadiolog2.pdf' "$esperados")
esperados=$(sort <<<"$esperados")

cmake --install "$build" --prefix "$tmp/p" >/dev/null
arbol=$(cd "$tmp/p" && find . -type f | sed 's|^\./||' | sort)
[ "$arbol" = "$esperados" ] || falla "el árbol instalado no es el esperado:
$(diff <(echo "$esperados") <(echo "$arbol"))"
# Nothing of the machine that built it: the prefix is the only place named.
grep -rl "$build" "$tmp/p/share" && falla "un archivo instalado nombra la carpeta de compilación"

# Its hints count too: a menu entry without a main category lands in a catch-all menu.
dfv=$(desktop-file-validate "$tmp/p/share/applications/$id.desktop" 2>&1) && [ -z "$dfv" ] ||
    falla "desktop-file-validate: $dfv"
appstreamcli validate --no-net --pedantic "$tmp/p/share/metainfo/$id.metainfo.xml" >"$tmp/as" 2>&1 ||
    { cat "$tmp/as"; falla "appstreamcli"; }
grep -q '^[EWIP]:' "$tmp/as" && { cat "$tmp/as"; falla "appstreamcli tiene observaciones"; }
zcat "$tmp/p/share/man/man1/carancho-radiolog.1.gz" | groff -man -ww -Tutf8 >/dev/null 2>"$tmp/man"
[ -s "$tmp/man" ] && { cat "$tmp/man"; falla "groff avisa sobre la página de manual"; }

cpack -G DEB -B "$tmp/deb" --config "$build/CPackConfig.cmake" >/dev/null
deb=$(ls "$tmp"/deb/carancho-radiolog_*_*.deb)
[[ $(basename "$deb") == carancho-radiolog_2.1.03~beta_* ]] || falla "nombre del paquete: $deb"
[ "$(dpkg-deb -f "$deb" Section)" = hamradio ] || falla "sección"
depende=$(dpkg-deb -f "$deb" Depends)
for p in libqt6sql6-sqlite qt6-translations-l10n gstreamer1.0-plugins-base \
    gstreamer1.0-plugins-good libqt6multimedia6 libqt6widgets6; do
    grep -qw -- "$p" <<<"$depende" || falla "Depends no nombra $p: $depende"
done
contenido=$(dpkg-deb -c "$deb" | awk '$1 !~ /^d/ {print $6}' | sed 's|^\./usr/||' | sort)
[ "$contenido" = "$esperados" ] || falla "el paquete no lleva lo que instala:
$(diff <(echo "$esperados") <(echo "$contenido"))"
if command -v lintian >/dev/null; then
    lintian "$deb" >"$tmp/lintian" 2>&1 || true
    grep '^E:' "$tmp/lintian" && falla "lintian da errores"
fi
echo "instalación y paquete en orden"
