# Shared by the scripts that play a desk's days from outside; $admin, $obra and $puesto are theirs.
fallo() { echo "FALLO: $1" >&2; cat "$obra/salida" >&2; exit 1; }
tocar() { QT_QPA_PLATFORM=offscreen "$admin" guion - --puesto "$puesto" >"$obra/salida" 2>&1 || fallo "el guion no terminó"; }
entrar='inicia
espera frmPassword
escribe txtUsuario CAJERO
escribe txtPassword caja
tecla Enter
espera frmPrincipal'
vender='clic mnuOperaciones_Hijo(4)
espera frmCajaRegistradoraFull
celda TDBGrid1 1 1 206
tecla Ctrl+Enter
tecla Esc
espera frmPrincipal'
