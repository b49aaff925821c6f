#!/usr/bin/env bash
# The package's whole life in a clean Debian root, on a screen of its own with real keys: installed from an older version
# number, a desk made by the dialog of the first start, a ticket sold to a file port, upgraded, removed. The desk's rows
# and papers must be the same at the end. Needs root and a Debian mirror; ends with 77 where one of its tools is missing.
#
#   instalacion.sh PACKAGE.deb [PICTURES]
set -euo pipefail
nuevo=$(realpath "$1")
fuentes=$(realpath "$(dirname "$0")/../..")
imagenes=${2:-}

faltar() { echo "No se probó la instalación: $1" >&2; exit 77; }
[ "$(id -u)" -eq 0 ] || faltar "hace falta ser root"
for h in debootstrap Xvfb xdotool sqlite3 dpkg-deb; do command -v "$h" >/dev/null || faltar "no está $h"; done

obra=$(mktemp -d)
raiz=$obra/raiz
procesos=()
recoger() {
  local p
  for p in "${procesos[@]}"; do kill "$p" 2>/dev/null || true; done
  for p in tmp/.X11-unix proc dev/pts dev; do umount -l "$raiz/$p" 2>/dev/null || true; done
  rm -rf --one-file-system "$obra"
}
trap recoger EXIT
. "$(dirname "$0")/persona.sh"
paso() { echo "== $1"; }

# --- the root, the older package and the screen
paso "Raíz limpia"
debootstrap --variant=minbase bookworm "$raiz" >"$obra/debootstrap.log" 2>&1 || { tail -5 "$obra/debootstrap.log"; faltar "debootstrap no pudo"; }
mount --bind /dev "$raiz/dev"; mount -t devpts devpts "$raiz/dev/pts"; mount -t proc proc "$raiz/proc"
dpkg-deb -R "$nuevo" "$obra/antes"
sed -i 's/^Version: .*/Version: 0.9.0/' "$obra/antes/DEBIAN/control"
dpkg-deb --root-owner-group -b "$obra/antes" "$raiz/srv/tarvopos_0.9.0.deb" >/dev/null
cp "$nuevo" "$raiz/srv/tarvopos_nuevo.deb"
en_raiz() { chroot "$raiz" env LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }

paso "Instala la versión anterior, con lo que ella pide y nada más"
en_raiz apt-get install -y -qq --no-install-recommends /srv/tarvopos_0.9.0.deb >"$obra/apt.log" 2>&1 ||
  { tail -20 "$obra/apt.log"; fallo "apt no pudo instalar"; }
version() { en_raiz dpkg-query -W -f='${Version}' tarvopos; }
[ "$(version)" = 0.9.0 ] || fallo "no quedó instalada"
for f in usr/bin/tarvopos usr/bin/tarvopos-admin usr/share/applications/tarvopos.desktop \
         usr/share/icons/hicolor/scalable/apps/tarvopos.svg usr/share/tarvopos/manual.html \
         usr/share/tarvopos/instalar.html; do
  [ -s "$raiz/$f" ] || fallo "falta /$f"
done
en_raiz dpkg -L tarvopos | grep -q 'man1/tarvopos.1.gz$' || fallo "faltan las páginas de manual"
[ "$(en_raiz tarvopos --version)" = "tarvopos $(dpkg-deb -f "$nuevo" Version)" ] || fallo "--version"
en_raiz tarvopos-admin >/dev/null || fallo "tarvopos-admin solo no termina con 0"
en_raiz useradd -m cajera
casa=$raiz/home/cajera
puesto=$casa/.local/share/TarvoPos

encender_pantalla
mkdir -p "$raiz/tmp/.X11-unix"
mount --bind /tmp/.X11-unix "$raiz/tmp/.X11-unix"

# --- a person before the screen
cajera=(chroot --userspec=cajera "$raiz" env -i HOME=/home/cajera USER=cajera PATH=/usr/bin:/bin LC_ALL=C.UTF-8
  "DISPLAY=$pantalla")
abrir() {
  "${cajera[@]}" tarvopos >"$obra/tarvopos.log" 2>&1 &
  till=$!
  procesos+=("$till")
}
cerrar() { kill "$till" 2>/dev/null || true; wait "$till" 2>/dev/null || true; }

paso "Primer inicio: crea la caja"
abrir
ventana '^TarvoPos - Caja nueva$'
teclas ctrl+a; escribir 00007
teclas alt+p; escribir secreta
teclas Tab; escribir secreta
foto primer-inicio
teclas alt+c
ventana '^Nombre y Password de Usuario$'
foto acceso
[ -s "$puesto/TarvoPos.mdb" ] && [ -s "$puesto/KEB.cfg" ] || fallo "no se creó la caja en $puesto"
[ "$(stat -c %U "$puesto/TarvoPos.mdb" 2>/dev/null)" != root ] || fallo "la caja es de root"
teclas Escape
wait "$till" 2>/dev/null || true

paso "Ajustes: una ticketera que es un archivo, un artículo, el tipo de cambio"
printf '[PUERTOS]\r\nLPT1=/home/cajera/papel.prn\r\n[IMPRESORAS]\r\nTicketera=LPT1\r\n' >>"$puesto/KEB.cfg"
"${cajera[@]}" tarvopos-admin sql --puesto /home/cajera/.local/share/TarvoPos --base local >"$obra/sql.log" <<SQL
UPDATE Configuracion SET sImpresora='Ticketera', sImpresoraAlterna='Ticketera', nFlagCortaPapel=1, nFlagCortaPapelALT=1
INSERT INTO Producto (cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit) VALUES ('01', 206, 'QUESO FRESCO', 'QUESO FRESCO', 12.50)
INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES (DATE(), 3.75)
SQL
! grep -q error "$obra/sql.log" || { cat "$obra/sql.log"; fallo "ajustes"; }

# The start took it out of sale, since the centre doesn't know it.
poner_a_la_venta() {
  echo "UPDATE Producto SET nActivo = 1 WHERE cProdCode = 206" |
    "${cajera[@]}" tarvopos-admin sql --puesto /home/cajera/.local/share/TarvoPos --base local | grep -q '"afectadas":1' ||
    fallo "no se pudo poner el artículo a la venta"
}

entrar() {
  abrir
  ventana '^Nombre y Password de Usuario$'
  teclas alt+u; escribir SUPERVISOR; teclas alt+p; escribir secreta; teclas Return
}

paso "Abre la caja y vende un ticket"
entrar
abrir_caja
ventana '^Control de Caja Registradora'; foto caja-abierta; poner_a_la_venta; teclas Return
ventana 'Versión Full|Caja Registradora.*[Ff]ull|FULL'
teclas alt+d; escribir 206; teclas Return
foto venta
teclas ctrl+Return
sleep 2
foto vendido
grep -aq 'QUESO FRESCO' "$casa/papel.prn" || fallo "el ticket no llegó al puerto"
grep -aq '12.50' "$casa/papel.prn" || fallo "el ticket no lleva el importe"
# Read from a copy: nobody but the cashier's user touches the store itself.
dato() {
  rm -rf "$obra/copia" && mkdir "$obra/copia" && cp "$puesto"/TarvoPos.mdb* "$obra/copia"
  sqlite3 "$obra/copia/TarvoPos.mdb" "$1"
}
[ "$(dato "SELECT count(*) FROM Operacion WHERE cOperTipo IN (1,2,3,4) AND cProdCode = 206 AND cDocCodigo = 1")" = 1 ] || fallo "la venta no está guardada"
[ "$(ls -d "$puesto"/respaldos/*-apertura | wc -l)" = 1 ] || fallo "no hay copia de la apertura"
cerrar

contenido() { dato .dump | sha256sum; sha256sum <"$casa/papel.prn"; sha256sum <"$puesto/KEB.cfg"; ls "$puesto/respaldos"; }
contenido >"$obra/antes.txt"

paso "Actualiza"
en_raiz apt-get install -y -qq --no-install-recommends /srv/tarvopos_nuevo.deb >"$obra/apt.log" 2>&1 || { tail -20 "$obra/apt.log"; fallo "apt no pudo actualizar"; }
[ "$(version)" = "$(dpkg-deb -f "$nuevo" Version)" ] || fallo "no se actualizó"
contenido | cmp - "$obra/antes.txt" || fallo "la actualización tocó la caja"
entrar
ventana '^TarvoPos$'; teclas Return
ventana '^Control de Caja Registradora'; foto actualizada; poner_a_la_venta; teclas Return
ventana 'Versión Full|Caja Registradora.*[Ff]ull|FULL'
teclas alt+d; escribir 206; teclas Return ctrl+Return
sleep 2
[ "$(dato "SELECT max(cDocCodigo) FROM Operacion")" = 2 ] || fallo "el segundo ticket no sigue al primero"
cerrar
contenido >"$obra/antes.txt"

paso "Una caja que dejó un programa de antes de las versiones"
vieja=$casa/vieja
"${cajera[@]}" tarvopos-admin crear-puesto /home/cajera/vieja --demo >"$obra/vieja.log"
for base in puesto:TarvoPos.mdb central:central.db cliente:cliente.db; do
  rm -f "$vieja/${base#*:}"*
  { echo 'PRAGMA journal_mode=WAL;'; cat "$fuentes/tests/store/version0/${base%:*}.sql"; } | sqlite3 "$vieja/${base#*:}" >/dev/null
done
chown -R --reference="$casa" "$vieja"
filas_viejas() { sqlite3 "$vieja/TarvoPos.mdb" "SELECT COUNT(*), MAX(cOperCode), TOTAL(nProdCant) FROM Operacion"; }
antes=$(filas_viejas)
printf 'inicia\nespera frmPassword\n' |
  "${cajera[@]}" QT_QPA_PLATFORM=offscreen tarvopos-admin guion - --puesto /home/cajera/vieja >"$obra/vieja.log" ||
  { cat "$obra/vieja.log"; fallo "la caja vieja no abre"; }
grep -q 'TarvoPos.mdb.* se actualizó de la versión 0 a la ' "$obra/vieja.log" || { cat "$obra/vieja.log"; fallo "no dice que actualizó la caja"; }
[ "$(filas_viejas)" = "$antes" ] || fallo "la actualización cambió las ventas de la caja vieja"
"${cajera[@]}" tarvopos-admin verificar /home/cajera/vieja >"$obra/vieja.log" || { cat "$obra/vieja.log"; fallo "la caja vieja no quedó sana"; }

paso "Quita el paquete"
en_raiz dpkg -L tarvopos | while read -r f; do [ -f "$raiz$f" ] && echo "$raiz$f"; done >"$obra/archivos.txt"
en_raiz apt-get purge -y -qq tarvopos >"$obra/apt.log" 2>&1 || { tail -20 "$obra/apt.log"; fallo "apt no pudo quitar"; }
while read -r f; do [ ! -e "$f" ] || fallo "quedó $f"; done <"$obra/archivos.txt"
contenido | cmp - "$obra/antes.txt" || fallo "quitar el paquete tocó la caja"

echo "Instalación: todo bien; la caja sigue entera."
