#!/usr/bin/env bash
# Real keys on a real screen: quick sales typed without any delay, each of them exact; a scanner's bursts and fast hands;
# what a hand does by habit. Needs Xvfb and xdotool; ends with 77 without.
#
#   manos.sh PATH/tarvopos [SALES] [PICTURES]
set -euo pipefail
caja=$(realpath "$1")
admin=$(dirname "$caja")/tarvopos-admin
ventas=${2:-500}
imagenes=${3:-}
for h in Xvfb xdotool sqlite3; do
  command -v "$h" >/dev/null || { echo "No se probaron las manos: no está $h" >&2; exit 77; }
done
obra=$(mktemp -d)
procesos=()
recoger() {
  local p
  for p in "${procesos[@]}"; do kill "$p" 2>/dev/null || true; done
  rm -rf "$obra"
}
trap recoger EXIT
. "$(dirname "$0")/persona.sh"
paso() { echo "== $1"; }
puesto=$obra/caja
dato() { sqlite3 "$puesto/TarvoPos.mdb" "$1"; }
# Until the store says so, or half a minute has passed.
esperar_dato() {
  local i
  for i in $(seq 300); do
    [ "$(dato "$1")" = "$2" ] && return 0
    sleep 0.1
  done
  foto "falla"
  fallo "$3: «$(dato "$1")» y no «$2»"
}

"$admin" crear-puesto "$puesto" --demo >"$obra/salida"
"$admin" sql --puesto "$puesto" --base local >"$obra/sql" <<'SQL'
DELETE FROM Tipo_Cambio WHERE dTipoCambFech = DATE()
INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES (DATE(), 3.75)
SQL
! grep -q error "$obra/sql" || { cat "$obra/sql" >&2; fallo "ajustes"; }

encender_pantalla
paso "Entra y abre la caja"
TARVOPOS_HOME=$puesto QT_QPA_PLATFORM=xcb "$caja" >"$obra/tarvopos.log" 2>&1 &
procesos+=($!)
ventana '^Nombre y Password de Usuario$'; teclas alt+u; escribir CAJERO; teclas alt+p; escribir caja; teclas Return
abrir_caja

paso "$ventas ventas rápidas sin pausa alguna"
ventana '^Control de Caja Registradora'; teclas shift+Tab Return
ventana '^Caja Registradora$'
foto rapida
piezas=0
for ((n = 1; n <= ventas; ++n)); do
  cantidad=$((n % 3 == 0 ? 1200 + n : 1 + n % 90))
  piezas=$((piezas + cantidad))
  echo "key --delay 0 F1 $(sed 's/./& /g' <<<"$cantidad")F2 2 ctrl+a ctrl+Return"
done >"$obra/teclado"
inicio=$(date +%s)
xdotool - <"$obra/teclado"
esperar_dato "SELECT COUNT(DISTINCT cDocCodigo) FROM Operacion" "$ventas" "ventas"
echo "   $ventas ventas en $(($(date +%s) - inicio)) s"
esperar_dato "SELECT CAST(SUM((cProdCode = 101) * nProdCant) AS INT), CAST(SUM((cProdCode = 102) * nProdCant) AS INT),
  COUNT(*) FROM Operacion" "$piezas|$((2 * ventas))|$((3 * ventas))" "unidades"
[ "$(grep -ac 'TK NRO' "$puesto/puertos/LPT1")" = "$ventas" ] || fallo "no están todos los tickets"
[ "$(grep -a 'TK NRO' "$puesto/puertos/LPT1" | sort -u | wc -l)" = "$ventas" ] || fallo "un número salió dos veces"

paso "Sobre un botón, las cifras son la cantidad; salir con una venta pregunta"
teclas F1 ctrl+a 1 2
foto cifras-sobre-boton
teclas alt+F4
ventana '^TarvoPos$'; foto salir-pregunta; teclas Return
ventana '^Caja Registradora$'
antes=$(dato "SELECT MAX(cDocCodigo) FROM Operacion")
teclas ctrl+Return
esperar_dato "SELECT CAST(nProdCant AS INT) FROM Operacion WHERE cProdCode = 101 AND cDocCodigo = $antes + 1" 12 "cantidad sobre un botón"

paso "El lector en las dos cajas"
escanear BEB206; escanear BEB206
teclas ctrl+a ctrl+Return
esperar_dato "SELECT CAST(nProdCant AS INT) FROM Operacion WHERE cProdCode = 206 AND cDocCodigo = $antes + 2" 2 "leído dos veces"
teclas space
ventana 'Versión FULL'
escanear LAC301
teclas alt+e; escribir 9
escanear LAC301
teclas alt+e
escanear XYZW99
ventana '^TarvoPos$'; foto lector-nadie; teclas Return
ventana 'Versión FULL'
escanear 00000001
foto lector-tarjeta
teclas ctrl+Return
esperar_dato "SELECT COUNT(*), CAST(SUM(nProdCant) AS INT) FROM Operacion WHERE cProdCode = 301 AND cDocCodigo = $antes + 3" "1|2" \
  "lector en la versión FULL"
esperar_dato "SELECT DISTINCT nTarjNumb FROM Operacion WHERE cDocCodigo = $antes + 3" 00000001 "la tarjeta leída"

paso "La coma, la cantidad y el importe sin medida"
teclas alt+d; escribir 206; teclas Return; escribir 3,75; teclas Return
ventana '^TarvoPos$'; foto coma; teclas Return
ventana 'Versión FULL'
teclas ctrl+a; escribir 10000; teclas Return
ventana '^TarvoPos$'; foto sin-medida; teclas Return
ventana 'Versión FULL'
teclas Escape alt+e
escribir 3,5; teclas Return
ventana '^TarvoPos$'; teclas Return
ventana 'Versión FULL'; teclas ctrl+a; escribir 20; teclas Return ctrl+Return
esperar_dato "SELECT nMontoSoles, -nProdPrecUnit FROM Operacion WHERE cProdCode = 0 AND cDocCodigo = $antes + 4" "20.0|17.0" "el efectivo"
foto vuelto-a-la-vista
echo "Manos: todo bien."
