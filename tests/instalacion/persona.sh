# A person before a screen of its own, with real keys; shared by the scripts that need one. $obra (a folder of the
# script's own), $imagenes (for pictures, may be "") and $procesos (what the script ends at its end) are theirs.
fallo() { echo "FALLO: $1" >&2; exit 1; }

# An X server of 1024 x 768 with nothing else on it, without a window manager.
encender_pantalla() {
  local i
  pantalla=:$((90 + RANDOM % 400))
  Xvfb "$pantalla" -screen 0 1024x768x24 -nolisten tcp -ac >"$obra/xvfb.log" 2>&1 &
  procesos+=($!)
  for i in $(seq 100); do [ -S "/tmp/.X11-unix/X${pantalla#:}" ] && break; sleep 0.1; done
  export DISPLAY=$pantalla
}
foto() {
  [ -n "$imagenes" ] && command -v import >/dev/null || return 0
  mkdir -p "$imagenes"
  import -window root "$imagenes/$1.png" || true
}
# Waits for the window of that title and gives it the keyboard, which no window manager does here.
ventana() {
  local v i
  for i in $(seq 150); do
    v=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -1) || true
    if [ -n "$v" ]; then
      xdotool windowfocus --sync "$v" 2>/dev/null || true
      sleep 0.5
      return 0
    fi
    sleep 0.2
  done
  foto "sin-$1"
  cat "$obra/tarvopos.log" >&2
  fallo "no apareció la ventana «$1»"
}
sin_ventana() {
  local i
  for i in $(seq 100); do xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 || return 0; sleep 0.2; done
  foto "sigue-$1"
  fallo "sigue la ventana «$1»"
}
teclas() { xdotool key --delay 60 "$@"; sleep 0.3; }
escribir() { xdotool type --delay 40 "$1"; sleep 0.2; }
# As a scanner does: a pause, one key every few thousandths of a second, Enter.
escanear() {
  sleep 0.5
  # shellcheck disable=SC2046
  xdotool key --delay 4 $(sed 's/./& /g' <<<"$1") Return
  sleep 1
}
# From the login to the open desk, with 100 soles in its drawer.
abrir_caja() {
  ventana '^TarvoPos$'; teclas Return   # the desk is closed
  ventana '^TarvoPos$'; teclas Return   # its warehouse
  ventana '^Control de Caja Registradora'; teclas Return
  ventana 'Apertura de Caja'; escribir 100; teclas alt+g
  ventana '^TarvoPos$'; teclas Return
  sin_ventana 'Apertura de Caja'
}
