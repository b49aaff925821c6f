#!/usr/bin/env bash
# A desk on a disk with 10 MB left: the status line says so, no copy eats the rest, another folder still gets its copy,
# the day is sold and closed; on a disk with nothing left a sale is refused in words and stands whole once there is room.
# Needs root for a disk of its own; ends with 77 without.
#
#   disco_lleno.sh PATH/tarvopos-admin
set -euo pipefail
admin=$(realpath "$1")
. "$(dirname "$0")/comun.sh"
[ "$(id -u)" -eq 0 ] || { echo "No se probó el disco lleno: hace falta ser root" >&2; exit 77; }
obra=$(mktemp -d)
disco=$obra/disco
mkdir "$disco" "$obra/usb"
mount -t tmpfs -o size=64m tmpfs "$disco" || { rm -rf "$obra"; echo "No se probó el disco lleno: no hay tmpfs" >&2; exit 77; }
trap 'umount -l "$disco"; rm -rf --one-file-system "$obra"' EXIT
puesto=$disco/caja

"$admin" crear-puesto "$puesto" --demo >"$obra/salida"
# Leaves so many bytes free.
dejar() {
  rm -f "$disco/relleno"
  local libre
  libre=$(($(df --output=avail -B1 "$disco" | tail -1) - $1))
  if [ "$libre" -gt 0 ]; then head -c "$libre" /dev/zero >"$disco/relleno" 2>/dev/null || true; fi
}
dato() { sqlite3 "$puesto/TarvoPos.mdb" "$1"; }

dejar 10000000
tocar <<GUION
reloj 24/11/2026 09:00:00
$entrar
lee lblEstadoAviso
clic mnuMantenimiento_Hijo(8)
espera FrmApertura
escribe txtimporsoles 100
clic CmdGrabar
espera frmPrincipal
lee lblEstadoAviso
$vender
GUION
grep -q '^lblEstadoAviso=Disco casi lleno: quedan [0-9]* MB$' "$obra/salida" || fallo "no avisa del disco"
grep -q '^lblEstadoAviso=Disco casi lleno: .* · No se hizo la copia de respaldo$' "$obra/salida" || fallo "no avisa de la copia"
[ "$(dato "SELECT count(*) FROM Operacion WHERE cProdCode = 206")" = 1 ] || fallo "no vendió"
[ -z "$(ls "$puesto/respaldos" 2>/dev/null)" ] || fallo "quedó media copia"
grep -aq 'Copia de respaldo: .*no hay sitio en el disco' "$puesto"/Err_20261124.log || fallo "la copia fallida no está en el registro"

# Nothing left at all: the program says why it does not open; one that is open refuses the sale in words.
dejar 0
if QT_QPA_PLATFORM=offscreen "$admin" guion - --puesto "$puesto" >"$obra/salida" 2>&1 <<<inicia; then
  fallo "abrió sin disco"
fi
grep -q 'Revise que el disco no esté lleno' "$obra/salida" || fallo "no dice por qué no abre"
dejar 10000000
filas=$(dato "SELECT count(*) FROM Operacion")
{
  printf '%s\n' 'reloj 24/11/2026 10:30:00' "$entrar" 'clic mnuOperaciones_Hijo(4)' 'espera frmCajaRegistradoraFull' \
    'celda TDBGrid1 1 1 206' 'foco'
  until grep -q '^foco=' "$obra/salida"; do sleep 0.2; done
  dejar 0
  echo 'tecla Ctrl+Enter'
} | tocar
grep -q 'lleno' "$obra/salida" || fallo "no dice que el disco está lleno"
[ "$(dato "SELECT count(*) FROM Operacion")" = "$filas" ] || fallo "guardó media venta"

# Room again, and another folder for the copies: the closing's copy goes at least there.
dejar 10000000
printf '[RESPALDO]\r\nCarpeta=%s\r\n' "$obra/usb" >>"$puesto/KEB.cfg"
tocar <<GUION
reloj 24/11/2026 21:00:00
$entrar
$vender
responde Sí
clic Toolbar1(11)
espera frmAutorizarOperacion
escribe txtUsuario SUPERVISOR
escribe txtPassword super
tecla Enter
espera frmCuadre
tecla Alt+C
espera frmPrincipal
lee lblEstadoDia
lee lblEstadoAviso
GUION
grep -q 'lblEstadoDia=CAJA 00001 · CERRADA' "$obra/salida" || fallo "no cerró"
grep -q '^lblEstadoAviso=.*Falta una copia de respaldo$' "$obra/salida" || fallo "no dice que falta una copia"
[ "$(ls -d "$obra"/usb/caja-00001/*-cierre | wc -l)" = 1 ] || fallo "no está la copia en la otra carpeta"
# The newest of them makes the whole desk again.
"$admin" restaurar "$obra/usb/caja-00001" "$obra/otra" >"$obra/salida" || fallo "no restauró"
"$admin" verificar "$obra/otra" >"$obra/salida" || fallo "lo restaurado no está sano"
echo "Disco lleno: todo bien."
