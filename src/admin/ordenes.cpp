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

int crearServidor(const QStringList& palabras, const char* nombre, const QStringList& tablas,
                  QStringList (*filas)(const QString&)) {
  Argumentos a;
  if (const auto error = LeerArgumentos(palabras, {1, 1, {QStringLiteral("--almacen")}, {}}, a)) return malUso(*error);
  const auto archivo = ArchivoDeServidor(a.lugares[0], QDir::currentPath());
  if (!archivo) return fallo(QStringLiteral("Sólo se crean servidores «sqlite:ARCHIVO» por ahora."));
  if (QFileInfo::exists(*archivo)) return fallo(QStringLiteral("%1 ya existe; no se ha tocado.").arg(*archivo));
  const QStringList sentencias = tablas + filas(a.valor(QStringLiteral("--almacen"), QStringLiteral("01")));
  if (const auto error = crearBaseSqlite(*archivo, sentencias)) {
    return fallo(QStringLiteral("No se pudo crear %1: %2").arg(*archivo, error->descripcion));
  }
  Decir(QStringLiteral("Base %1 creada en %2.").arg(QString::fromLatin1(nombre), *archivo));
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
  if (const auto error = CrearPuesto(d)) return fallo(*error);

  for (const QString& aviso : AvisosDePuesto(d)) Quejarse(aviso);
  Decir(QStringLiteral("Puesto creado en %1: caja %2, almacén %3, servicio %4 %.")
            .arg(d.carpeta, d.caja, d.almacen, d.servicio));
  Decir(QStringLiteral("Supervisor: ") + d.usuario);
  if (inventada) Decir(QStringLiteral("Clave (no se vuelve a mostrar): ") + d.clave);
  return kBien;
}

int ordenCrearCentral(const QStringList& palabras) {
  return crearServidor(palabras, "central", tablasDelCentral(), FilasDelCentral);
}

int ordenCrearCliente(const QStringList& palabras) {
  return crearServidor(palabras, "cliente", tablasDelCliente(), [](const QString&) { return FilasDelCliente(); });
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
  bool esNumero = true;
  const qint64 numero = a.tiene(ultimo) ? a.opciones[ultimo].toLongLong(&esNumero) : 0;
  if (!esNumero || numero < 0) return malUso(QStringLiteral("--ultimo-documento lleva un número."));
  QStringList dicho;
  const auto error = RestaurarPuesto({a.lugares[0], a.lugares[1], RelojSistema().now(), numero}, dicho);
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
