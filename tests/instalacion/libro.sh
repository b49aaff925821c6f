#!/usr/bin/env bash
# The workbook of the X-1, made by the demo day, opens in LibreOffice without a word, and converted from there it holds
# the cells that were worked out for it. Ends with 77 where there is no LibreOffice (Debian: libreoffice-calc).
#
#   libro.sh PATH/tarvopos-admin
set -euo pipefail
admin=$(realpath "$1")
fuentes=$(realpath "$(dirname "$0")/../..")
. "$(dirname "$0")/comun.sh"
command -v soffice >/dev/null || { echo "No se probó el libro: falta libreoffice-calc" >&2; exit 77; }
obra=$(mktemp -d)
trap 'rm -rf "$obra"' EXIT
cd "$obra"  # the plays leave their pictures here
supervisor='espera frmAutorizarOperacion
escribe txtUsuario SUPERVISOR
escribe txtPassword super
tecla Enter
espera frmPrincipal'

# What a sheet of the golden workbook holds, one line a row; a number there is marked with "=".
esperada() {
  awk -v hoja="$2" -F'|' '/^## /{n++; next} n == hoja {while (++fila < $1) print ""; l = ""
    for (c = 2; c < NF; ++c) {sub(/^=/, "", $c); l = l "\t" $c}
    sub(/\t+$/, "", l); print substr(l, 2)}' "$1"
}

for dia in dia dos_turnos; do
  puesto=$obra/$dia
  "$admin" crear-puesto "$puesto" --demo >"$obra/salida"
  case $dia in
    dia) hasta='## Cierre del día: Z1 y Z' hoy=25/11/2026 ;;
    *) hasta='# X-1 y X del segundo turno' hoy=24/11/2026 ;;
  esac
  guion=$(awk -v hasta="$hasta" 'index($0, hasta) {exit} {print}' "$fuentes/guiones/$dia.guion")
  tocar <<GUION
$guion
reloj $hoy 20:50:00
clic mnuOperaciones_Hijo(17)
$supervisor
GUION
  libro=$(echo "$puesto"/Temp/*.xlsx)
  [ -f "$libro" ] || fallo "no hay libro de $dia"
  # Tab between the cells, their content as stored, every sheet in a file of its own.
  for filtro in 'csv:Text - txt - csv (StarCalc):9,,76,1,,0,false,false,false,false,false,-1' pdf; do
    soffice -env:UserInstallation="file://$obra/perfil" --headless --convert-to "$filtro" --outdir "$obra/$dia.hojas" \
      "$libro" >"$obra/salida" 2>&1 </dev/null || fallo "LibreOffice no abrió el libro de $dia"
    # Without Java it says so once, which no workbook is to blame for.
    if grep -v -e '^convert ' -e '^Writing sheet ' -e javaldx -e '^$' "$obra/salida"; then fallo "LibreOffice avisó algo de $dia"; fi
  done
  [ -s "$(echo "$obra/$dia.hojas"/*.pdf)" ] || fallo "no hay PDF de $dia"
  n=0
  for nombre in Detallado Consolidado; do
    n=$((n + 1))
    hoja=$(ls "$obra/$dia.hojas"/*"$nombre"*.csv) || fallo "falta la hoja $nombre de $dia"
    esperada "$fuentes/tests/golden/paralelos/$dia.libro" $n >"$obra/esperada"
    sed -e 's/\r$//' -e 's/\t*$//' "$hoja" >"$obra/leida"
    diff "$obra/esperada" "$obra/leida" >"$obra/salida" || fallo "la hoja $nombre de $dia no es la esperada"
  done
done
echo "El libro del X-1 abre en LibreOffice como se esperaba"
