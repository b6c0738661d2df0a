#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Takes the manual's pictures again: every window in turn, opened with the operator's own
# keys over a demonstration folder of generated QSOs, on a virtual screen. Run it after a
# window changes, then commit the PNG files; the build uses the committed pictures and
# needs no display.
#   ./radiolog.sh && docs/capturas.sh
set -euo pipefail
cd "$(dirname "$0")/.."
app=./build/carancho-radiolog
demo=./build/tools/manual/radiolog-demo
[ -d build ] || { echo "Primero: ./radiolog.sh"; exit 1; }
# Only the program and the demonstration: the manual itself may be waiting for these pictures.
cmake --build build --target carancho-radiolog radiolog-demo >/dev/null
for p in xvfb xdotool imagemagick openbox python3; do
    dpkg -s "$p" >/dev/null 2>&1 || sudo apt-get install -y --no-install-recommends "$p"
done

export DISPLAY=:${XNUM:-97} QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8
Xvfb "$DISPLAY" -screen 0 1400x1000x24 >/dev/null 2>&1 &
xvfb=$!
sleep 1
openbox --sm-disable >/dev/null 2>&1 &
wm=$!
# The web services answer from here, with a made-up station, so that the pictures show
# what an operator sees and nothing leaves the machine.
web=$(mktemp -d)
mkdir -p "$web/php"
printf '<call>LU7HF</call><name>Juan Pérez</name><addr1>Av. Colón 1234</addr1><addr2>Córdoba</addr2><grid>FF78</grid><email>lu7hf@ejemplo.org</email><ultimo>17/10/2026</ultimo>' \
    >"$web/php/carancho_lbn.php"
python3 -m http.server 8765 --bind 127.0.0.1 --directory "$web" >/dev/null 2>&1 &
servidor=$!
trap 'kill $wm $xvfb $servidor 2>/dev/null; rm -rf "$web"' EXIT

# captura NOMBRE TITULO [PASO...]: starts the program over a fresh copy of the demonstration
# folder, runs the steps ("tecla:ctrl+c", "texto:LU7HF", "espera:2", "clic:486,89" or
# "dobleclic:100,282" inside the active window), waits for the window
# whose title matches TITULO and saves docs/NOMBRE.png.
captura() {
    local nombre=$1 titulo=$2
    shift 2
    local datos
    datos=$(mktemp -d)
    "$demo" "$datos/carancho-radiolog"
    printf 'LbN=http://127.0.0.1:8765\r\nQRZ=http://127.0.0.1:8765\r\nSitio=http://127.0.0.1:8765\r\nAMSAT=http://127.0.0.1:8765\r\nHamQTH=http://127.0.0.1:8765\r\n' \
        >"$datos/carancho-radiolog/servicios.ini"
    XDG_DATA_HOME=$datos "$app" >/dev/null 2>&1 &
    local pid=$!
    local principal
    principal=$(xdotool search --sync --onlyvisible --name '^Carancho Radiolog V' | head -n1)
    sleep 2.5
    xdotool windowactivate --sync "$principal" 2>/dev/null || true
    for paso in "$@"; do
        case $paso in
        tecla:*) xdotool key --delay 120 "${paso#tecla:}" ;;
        texto:*) xdotool type --delay 60 "${paso#texto:}" ;;
        espera:*) sleep "${paso#espera:}" ;;
        clic:*) # x,y inside the active window, as its picture shows it
            local xy=${paso#clic:}
            xdotool mousemove --window "$(xdotool getactivewindow)" "${xy%,*}" "${xy#*,}" click 1 ;;
        dobleclic:*)
            local xy=${paso#dobleclic:}
            xdotool mousemove --window "$(xdotool getactivewindow)" "${xy%,*}" "${xy#*,}" \
                click --repeat 2 --delay 80 1 ;;
        esac
        sleep 0.4
    done
    local ventana
    ventana=$(timeout 10 xdotool search --sync --onlyvisible --name "$titulo" | tail -n1)
    sleep 0.5
    import -window "$ventana" "docs/$nombre.png"
    echo "docs/$nombre.png"
    kill "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
    rm -rf "$datos"
}

captura principal '^Carancho Radiolog V'
captura configuracion '^Configuración$' tecla:ctrl+c
captura abrir-log '^Abrir Log' tecla:ctrl+a
captura edicion '^Edición de QSO' tecla:F5
captura historial '^LU7HF$' texto:lu7hf tecla:ctrl+x
# Tab walks to "Vía Satélite" (the date and time fields are off), then to "Editar".
hasta_satelite=(tecla:Tab tecla:Tab tecla:Tab tecla:Tab tecla:Tab tecla:Tab tecla:Tab tecla:Tab
                tecla:Tab tecla:Tab tecla:Tab tecla:space espera:1)
captura satelites '^Carancho Radiolog V' "${hasta_satelite[@]}"
captura editar-satelites '^Editar Satélites' "${hasta_satelite[@]}" clic:486,89
captura provincias '^Argentina en LbN' tecla:ctrl+p
captura exportar '^Exportar' tecla:ctrl+b
captura respaldo '^Back Up' tecla:ctrl+f
captura importar '^Importar ADIF' tecla:ctrl+i
captura concursos '^Logs Cabrillos' tecla:ctrl+o
captura concurso '^Cabrillo \.\.\.$' tecla:ctrl+o texto:'FIESTA DE LA RADIO' tecla:Return
un_qso=(tecla:ctrl+o texto:'FIESTA DE LA RADIO' tecla:Return espera:1 texto:lu7hf tecla:Tab
        tecla:Tab texto:5 tecla:Return espera:1)
captura encabezado '^Encabezado de' "${un_qso[@]}" clic:509,537
captura registro '^Edición de Registro' "${un_qso[@]}" dobleclic:100,282
captura consulta-lbn '^Libro Nacional$' texto:lu7hf tecla:ctrl+l espera:1
captura acerca '^Acerca de' tecla:ctrl+r
captura cierre '^Carancho Radiolog$' tecla:ctrl+s tecla:alt+s
