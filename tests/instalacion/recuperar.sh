#!/usr/bin/env bash
# A desk is copied, sells on, loses its whole folder and comes back from the copy: what the centre holds beyond it is
# told, and the next ticket follows the last one that the centre, or the shop on paper, has seen.
#
#   recuperar.sh PATH/tarvopos-admin
set -euo pipefail
admin=$(realpath "$1")
. "$(dirname "$0")/comun.sh"
obra=$(mktemp -d)
trap 'rm -rf "$obra"' EXIT
puesto=$obra/caja
mkdir "$obra/usb" "$puesto"
sql() { "$admin" sql --puesto "$puesto" --base "$1" >"$obra/sql" && ! grep -q '"error"' "$obra/sql" || { cat "$obra/sql"; exit 1; }; }
ultimo() { sqlite3 "$puesto/TarvoPos.mdb" "SELECT max(cDocCodigo) FROM Operacion WHERE cDocTipo = '02' AND cProdCode = 206"; }

# The central server lies outside the desk's folder, as another machine's would.
"$admin" crear-puesto "$puesto" --demo >"$obra/salida"
mv "$puesto/central.db" "$obra/central.db"
sql local <<<"UPDATE Configuracion SET DataServer='sqlite:../central.db'"
sed -i 's|^DataServer=.*|DataServer=sqlite:../central.db\r|' "$puesto/KEB.cfg"
printf '[RESPALDO]\r\nCarpeta=%s\r\n' "$obra/usb" >>"$puesto/KEB.cfg"

tocar <<GUION
reloj 24/11/2026 09:00:00
$entrar
clic mnuMantenimiento_Hijo(8)
espera FrmApertura
clic CmdGrabar
espera frmPrincipal
$vender
$vender
GUION
"$admin" respaldo "$puesto" >"$obra/salida" || fallo "no copió"
tocar <<GUION
reloj 24/11/2026 12:00:00
$entrar
$vender
GUION
[ "$(ultimo)" = 3 ] || fallo "no vendió tres tickets"
# The centre has received all three.
sql central <<'SQL'
INSERT INTO operacion (cOperID, cOperCode, cCajaCodi, cDocTipo, cDocSerie, cDocCodigo) VALUES (1, 3, '00001', '02', '001', '000003')
SQL

rm -rf "$puesto"
"$admin" restaurar "$obra/usb/caja-00001" "$puesto" >"$obra/salida" || fallo "no restauró"
grep -q 'hasta la operación 2, el documento 2' "$obra/salida" || fallo "no dice hasta dónde llega la copia"
grep -q 'el servidor central tiene más que la copia: hasta la operación 3 y el documento 3' "$obra/salida" || fallo "no dice lo que el centro tiene de más"
"$admin" verificar "$puesto" >"$obra/salida" || fallo "lo restaurado no está sano"
grep -aq 'TK NRO: 001-000002' "$puesto/puertos/LPT1" || fallo "no volvieron los papeles"
tocar <<GUION
reloj 24/11/2026 15:00:00
$entrar
$vender
GUION
[ "$(ultimo)" = 4 ] || fallo "el ticket siguiente es el $(ultimo) y no el 4"

# A ticket that only the paper knows.
rm -rf "$puesto"
"$admin" restaurar "$obra/usb/caja-00001" "$puesto" --ultimo-documento 9 >"$obra/salida" || fallo "no restauró"
grep -q 'El próximo documento será el 10' "$obra/salida" || fallo "no dice el número que sigue"
tocar <<GUION
reloj 24/11/2026 16:00:00
$entrar
$vender
GUION
[ "$(ultimo)" = 10 ] || fallo "el ticket siguiente es el $(ultimo) y no el 10"
grep -q 'numeración' "$obra/salida" && fallo "la numeración se corrigió sola"
echo "Recuperar: todo bien."
