# Shared by run, test and .ci/run: what is installed and how it is built.

PAQUETES_PROGRAMA=(g++ cmake ninja-build pkg-config qt6-base-dev qt6-svg-dev libgl1-mesa-dev libsqlite3-dev libpq-dev unixodbc-dev libsodium-dev
  libxlsxwriter-dev fonts-dejavu-core)
PAQUETES_PRUEBAS=(libgtest-dev librapidcheck-dev libbenchmark-dev sqlite3 clang-format-14 postgresql libsqliteodbc
  odbc-postgresql tdsodbc)
PAQUETES_INSTALACION=(debootstrap xvfb xdotool sqlite3)
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
  # The tests start a PostgreSQL of their own: its package shall not start another one.
  local sin_servidor=/etc/postgresql-common/createcluster.d/tarvopos.conf
  case " ${faltan[*]} " in *" postgresql "*)
    $sudo mkdir -p "${sin_servidor%/*}"
    echo "create_main_cluster = false" | $sudo tee "$sin_servidor" >/dev/null ;;
  esac
  $sudo apt-get install -y -qq --no-install-recommends "${faltan[@]}" >/dev/null
  $sudo rm -f "$sin_servidor"
}

# compilar PRESET [CMAKE --build ARGUMENTS...]: the presets of CMakePresets.json
compilar() {
  local preset=$1
  shift
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" "$@"
}
