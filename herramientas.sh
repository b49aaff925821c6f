# Shared by run, test and .ci/run: what is installed and how it is built.

PAQUETES_PROGRAMA=(g++ cmake ninja-build pkg-config qt6-base-dev qt6-svg-dev libgl1-mesa-dev libsqlite3-dev libpq-dev libsodium-dev
  libxlsxwriter-dev fonts-dejavu-core)
PAQUETES_PRUEBAS=(libgtest-dev librapidcheck-dev libbenchmark-dev sqlite3 clang-format-14)
PAQUETES_PAQUETE=(cmark-gfm dpkg-dev file)

# Installs the Debian packages that are missing; nothing when all are there.
instalar() {
  local faltan=() p
  for p in "$@"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'ok installed' || faltan+=("$p")
  done
  [ ${#faltan[@]} -eq 0 ] && return 0
  local sudo=""
  [ "$(id -u)" -eq 0 ] || sudo="sudo"
  echo "Instalando: ${faltan[*]}"
  export DEBIAN_FRONTEND=noninteractive
  $sudo apt-get update -qq
  $sudo apt-get install -y -qq --no-install-recommends "${faltan[@]}" >/dev/null
}

# compilar PRESET [CMAKE --build ARGUMENTS...]: the presets of CMakePresets.json
compilar() {
  local preset=$1
  shift
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" "$@"
}
