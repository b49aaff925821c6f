#include "admin/ordenes.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <cstdio>
#include <iostream>

#include "admin/actualizar.h"
#include "admin/argumentos.h"
#include "admin/consola_sql.h"
#include "admin/respaldo.h"
#include "admin/restaurar.h"
#include "admin/verificar.h"
#include "alta/autoarranque.h"
#include "alta/crear_puesto.h"
#include "alta/crear_servidor.h"
#include "foundation/respaldo.h"
#include "platform/io/reloj_sistema.h"
#include "platform/sql/crear_sqlite.h"
#include "postgres/base_postgres.h"
#include "postgres/servidor_demo.h"
#include "servidores.h"

namespace {

void escribir(std::FILE* a, const QString& linea) {
  std::fputs((linea + u'\n').toUtf8().constData(), a);
  std::fflush(a);
}

int malUso(const QString& palabras) {
  Quejarse(palabras + QStringLiteral(" Use «tarvopos-admin ayuda»."));
  return kMalUso;
}

int fallo(const QString& palabras) {
  Quejarse(palabras);
  return kFallo;
}

int crearEmbebido(const QString& archivo, const QStringList& sentencias, const QString& nombre) {
  if (QFileInfo::exists(archivo)) return fallo(QStringLiteral("%1 ya existe; no se ha tocado.").arg(archivo));
  if (const auto error = crearBaseSqlite(archivo, sentencias)) {
    return fallo(QStringLiteral("No se pudo crear %1: %2").arg(archivo, error->descripcion));
  }
  Decir(QStringLiteral("Base %1 creada en %2.").arg(nombre, archivo));
  return kBien;
}

int crearServidor(const QStringList& palabras, BaseServidor base, const QString& nombre) {
  Argumentos a;
  const QString almacen = QStringLiteral("--almacen");
  if (const auto error = LeerArgumentos(palabras, {1, 1, {almacen}, {}}, a)) return malUso(*error);
  const QStringList filas =
      base == BaseServidor::Central ? FilasDelCentral(a.valor(almacen, QStringLiteral("01"))) : FilasDelCliente();
  if (const auto archivo = ArchivoDeServidor(a.lugares[0], QDir::currentPath())) {
    return crearEmbebido(*archivo, tablasDelServidor(base, LenguajeMotor::Sqlite) + filas, nombre);
  }
  const auto servidor = ServidorDePalabras(a.lugares[0], base);
  if (!servidor) {
    return fallo(QStringLiteral("Se crean servidores «sqlite:ARCHIVO» y "
                                "«postgres:USUARIO:CLAVE@MAQUINA[:PUERTO][/BASE]»."));
  }
  const ResultadoBase r = CrearBasePostgres(*servidor, base, filas);
  if (r.fin != FinBase::Hecha) return fallo(r.palabras);
  Decir(QStringLiteral("Base %1 creada en %2, servidor %3.").arg(nombre, servidor->catalogo, servidor->servidor));
  return kBien;
}

}  // namespace

void Decir(const QString& linea) { escribir(stdout, linea); }
void Quejarse(const QString& linea) { escribir(stderr, linea); }

int ordenCrearPuesto(const QStringList& palabras) {
  Argumentos a;
  const FormaOrden forma{
      1,
      1,
      {QStringLiteral("--caja"), QStringLiteral("--almacen"), QStringLiteral("--servicio"), QStringLiteral("--central"),
       QStringLiteral("--cliente"), QStringLiteral("--usuario"), QStringLiteral("--clave")},
      {QStringLiteral("--demo")}};
  if (const auto error = LeerArgumentos(palabras, forma, a)) return malUso(*error);
  DatosPuesto d;
  d.carpeta = a.lugares[0];
  d.caja = a.valor(QStringLiteral("--caja"), d.caja);
  d.almacen = a.valor(QStringLiteral("--almacen"), d.almacen);
  d.servicio = a.valor(QStringLiteral("--servicio"), d.servicio);
  d.central = a.valor(QStringLiteral("--central"), d.central);
  d.cliente = a.valor(QStringLiteral("--cliente"), d.cliente);
  d.usuario = a.valor(QStringLiteral("--usuario"), d.usuario);
  d.demo = a.tiene(QStringLiteral("--demo"));
  const bool inventada = !a.tiene(QStringLiteral("--clave")) && !d.demo;
  d.clave = a.valor(QStringLiteral("--clave"), inventada ? ClaveAlAzar() : QStringLiteral("super"));
  d.ahora = RelojSistema().now();
  QStringList hecho;
  if (const auto error = CrearPuesto(d, &hecho)) return fallo(*error);

  for (const QString& h : hecho) Decir(h);
  for (const QString& aviso : AvisosDePuesto(d)) Quejarse(aviso);
  Decir(QStringLiteral("Puesto creado en %1: caja %2, almacén %3, servicio %4 %.")
            .arg(d.carpeta, d.caja, d.almacen, d.servicio));
  Decir(QStringLiteral("Supervisor: ") + d.usuario);
  if (inventada) Decir(QStringLiteral("Clave (no se vuelve a mostrar): ") + d.clave);
  return kBien;
}

int ordenCrearCentral(const QStringList& palabras) {
  return crearServidor(palabras, BaseServidor::Central, QStringLiteral("central"));
}

int ordenCrearCliente(const QStringList& palabras) {
  return crearServidor(palabras, BaseServidor::Cliente, QStringLiteral("cliente"));
}

int ordenServidorDemo(const QStringList& palabras) {
  Argumentos a;
  const QString parar = QStringLiteral("--parar");
  if (const auto error = LeerArgumentos(palabras, {1, 1, {}, {parar}}, a)) return malUso(*error);
  if (a.tiene(parar)) {
    if (const auto error = PararServidorDemo(a.lugares[0])) return fallo(*error);
    Decir(QStringLiteral("El servidor de %1 está parado.").arg(a.lugares[0]));
    return kBien;
  }
  ServidorDemo s;
  if (const auto error = ArrancarServidorDemo(a.lugares[0], s)) return fallo(*error);
  Decir(QStringLiteral("Servidor PostgreSQL de prueba en marcha en %1, proceso %2.").arg(s.carpeta).arg(s.proceso));
  Decir(QStringLiteral("Central: %1/central").arg(s.palabras()));
  Decir(QStringLiteral("Cliente: %1/cliente").arg(s.palabras()));
  Decir(QStringLiteral("Esas palabras van detrás de crear-central, crear-cliente, --central y --cliente."));
  return kBien;
}

// A folder alone: a dated copy of the whole desk. With a file: the store alone, into that file.
int ordenRespaldo(const QStringList& palabras) {
  Argumentos a;
  const QString reemplazar = QStringLiteral("--reemplazar");
  if (const auto error = LeerArgumentos(palabras, {1, 2, {}, {reemplazar}}, a)) return malUso(*error);
  if (a.lugares.size() == 1) {
    const ResultadoRespaldo r =
        CopiarPuesto(rutasDe(QDir(a.lugares[0]).absolutePath()), RelojSistema().now(), MotivoRespaldo::Pedido);
    for (const QString& c : r.copias) Decir(QStringLiteral("Copia del puesto hecha y comprobada: ") + c);
    for (const QString& f : r.fallos) Quejarse(QStringLiteral("No se hizo una copia: ") + f);
    return r.fallos.isEmpty() ? kBien : kFallo;
  }
  if (const auto error = RespaldarPuesto(a.lugares[0], a.lugares[1], a.tiene(reemplazar))) return fallo(*error);
  Decir(QStringLiteral("Respaldo escrito y comprobado: ") + a.lugares[1]);
  return kBien;
}

int ordenRestaurar(const QStringList& palabras) {
  Argumentos a;
  const QString ultimo = QStringLiteral("--ultimo-documento");
  if (const auto error = LeerArgumentos(palabras, {2, 2, {ultimo}, {}}, a)) return malUso(*error);
  PedidoRestaurar pedido{a.lugares[0], a.lugares[1], RelojSistema().now()};
  for (const QString& uno : a.opciones.value(ultimo).split(u',')) {
    if (!a.tiene(ultimo)) break;
    const QString serie = uno.section(u'-', 0, -2).trimmed().toUpper();
    bool esNumero = false;
    const qint64 numero = uno.section(u'-', -1).toLongLong(&esNumero);
    if (!esNumero || uno.trimmed().startsWith(u'-')) {
      return malUso(QStringLiteral("--ultimo-documento lleva un número, y los de otras series como en su papel: "
                                   "133,NC1-35."));
    }
    if (serie.isEmpty()) pedido.ultimoDocumento = numero;
    else pedido.ultimosParalelos.emplace_back(serie, numero);
  }
  QStringList dicho;
  const auto error = RestaurarPuesto(pedido, dicho);
  for (const QString& d : dicho) Decir(d);
  return error ? fallo(*error) : kBien;
}

int ordenAutoarranque(const QStringList& palabras) {
  Argumentos a;
  if (const auto error = LeerArgumentos(palabras, {2, 2, {}, {}}, a)) return malUso(*error);
  const bool si = a.lugares[1] == u"si" || a.lugares[1] == u"sí";
  if (!si && a.lugares[1] != u"no") return malUso(QStringLiteral("El segundo argumento es «si» o «no»."));
  // The till lies beside this program.
  const QString programa = QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("tarvopos"));
  const auto error = si ? PonerAutoarranque(programa, QDir(a.lugares[0]).absolutePath()) : QuitarAutoarranque();
  if (error) return fallo(QStringLiteral("No se pudo cambiar el arranque: ") + *error);
  Decir(si ? QStringLiteral("La caja se abrirá al entrar este usuario.")
           : QStringLiteral("La caja ya no se abrirá sola."));
  return kBien;
}

int ordenVerificar(const QStringList& palabras) {
  Argumentos a;
  if (const auto error = LeerArgumentos(palabras, {1, 1, {}, {}}, a)) return malUso(*error);
  const QStringList hallazgos = VerificarPuesto(a.lugares[0]);
  for (const QString& h : hallazgos) Decir(h);
  if (!hallazgos.isEmpty()) return kFallo;
  Decir(QStringLiteral("Sin novedad."));
  return kBien;
}

int ordenActualizar(const QStringList& palabras) {
  Argumentos a;
  if (const auto error = LeerArgumentos(palabras, {1, 1, {}, {}}, a)) return malUso(*error);
  QStringList hecho;
  const auto error = ActualizarPuesto(a.lugares[0], RelojSistema().now(), hecho);
  for (const QString& h : hecho) Decir(h);
  if (error) return fallo(*error);
  if (hecho.isEmpty()) Decir(QStringLiteral("El puesto ya está al día."));
  return kBien;
}

int ordenSql(const QStringList& palabras) {
  Argumentos a;
  const FormaOrden forma{0, 0, {QStringLiteral("--puesto"), QStringLiteral("--base")}, {QStringLiteral("--traducir")}};
  if (const auto error = LeerArgumentos(palabras, forma, a)) return malUso(*error);
  const QHash<QString, BasePuesto> bases{{QStringLiteral("local"), BasePuesto::Local},
                                         {QStringLiteral("central"), BasePuesto::Central},
                                         {QStringLiteral("cliente"), BasePuesto::Cliente}};
  const auto base = bases.constFind(a.valor(QStringLiteral("--base"), {}));
  if (!a.tiene(QStringLiteral("--puesto"))) return malUso(QStringLiteral("Falta --puesto."));
  if (base == bases.constEnd()) return malUso(QStringLiteral("--base es local, central o cliente."));
  const QString carpeta = QDir(a.opciones[QStringLiteral("--puesto")]).absolutePath();
  const auto motores = motoresDelSistema(carpeta, {{}, procedimientosDeServidores(), {}});
  Conexion cnn;
  if (const auto error = AbrirBase(*motores, carpeta, *base, cnn)) {
    return fallo(QStringLiteral("No se pudo abrir la base %1: %2").arg(base.key(), *error));
  }
  ConsolaSql(cnn, std::cin, std::cout, a.tiene(QStringLiteral("--traducir")));
  return kBien;
}
