// tarvopos-admin: set-up and service of a desk.
#include <QCoreApplication>

#include "admin/demo.h"
#include "admin/guion.h"
#include "admin/guion_lexico.h"
#include "admin/ordenes.h"
#include "admin/simula.h"
#include "foundation/version.h"
#include "platform/io/senales.h"

namespace {

struct Orden {
  const char16_t *nombre, *forma, *ayuda;
  int (*hacer)(const QStringList&);
  bool conVentanas = false;  // makes its own application object
};

// clang-format off
constexpr Orden kOrdenes[] = {
    {u"crear-puesto",
     u"DIR [--caja C] [--almacen A] [--servicio P] [--central S] [--cliente S] [--usuario U --clave K] [--demo]",
     u"crea la carpeta de un puesto: ajustes, tablas, primer supervisor y las bases de sus servidores que falten",
     ordenCrearPuesto},
    {u"crear-central", u"sqlite:ARCHIVO | postgres:USUARIO:CLAVE@MAQUINA[:PUERTO][/BASE] [--almacen A]",
     u"crea la base central", ordenCrearCentral},
    {u"crear-cliente", u"sqlite:ARCHIVO | postgres:USUARIO:CLAVE@MAQUINA[:PUERTO][/BASE]", u"crea la base de clientes",
     ordenCrearCliente},
    {u"servidor-demo", u"DIR [--parar]",
     u"crea y arranca en DIR un servidor PostgreSQL de prueba, sólo para esta máquina, o lo para", ordenServidorDemo},
    {u"respaldo", u"DIR [ARCHIVO [--reemplazar]]",
     u"copia el puesto entero a sus carpetas de respaldo o, a ARCHIVO, sólo su base; también con la caja en marcha",
     ordenRespaldo},
    {u"restaurar", u"COPIA DIR [--ultimo-documento N[,SERIE-N...]]",
     u"pone en DIR una copia del puesto (o la última de una carpeta de copias); aparta antes lo que haya; N es el "
     "último ticket que la tienda tiene en papel, y SERIE-N el de otra serie (NC1-35)",
     ordenRestaurar},
    {u"autoarranque", u"DIR si|no", u"hace que la caja de DIR se abra, o no, al entrar este usuario en la computadora",
     ordenAutoarranque},
    {u"verificar", u"DIR", u"revisa un puesto y escribe lo que encuentra", ordenVerificar},
    {u"actualizar", u"DIR", u"pone al día las bases de un puesto hecho con un programa anterior; guarda antes una "
                             "copia",
     ordenActualizar},
    {u"comparar", u"DIR [--desde dd/mm/aaaa] [--hasta dd/mm/aaaa]",
     u"compara las operaciones cerradas de un puesto con las de la base central, serie por serie y día por día",
     ordenComparar},
    {u"simular", u"[--puestos N] [--dias D] [--semilla S] [--dir DIR] [--servidor S] [--operaciones N] "
     "[--fallas F,...] [--envio FILAS]",
     u"N cajas, cada una un proceso, pasan D días sobre un PostgreSQL con las fallas que decide la semilla; al final "
     "compara caja, centro y papel; con --envio mide cuántas filas por segundo recibe el centro de todas a la vez",
     ordenSimular},
    {u"sql", u"--puesto DIR --base local|central|cliente [--traducir]",
     u"lee sentencias de la entrada, una por línea, y responde cada una con una línea JSON", ordenSql},
    {u"guion", u"ARCHIVO --puesto DIR [--salida DIR]",
     u"toca un guion en las pantallas de un puesto; ARCHIVO «-» es la entrada estándar; las imágenes van a --salida",
     ordenGuion, true},
    {u"demo", u"DIR", u"crea un puesto de demostración en DIR y toca en él el día de la tienda", ordenDemo, true},
};
// clang-format on

void ayuda() {
  Decir(QStringLiteral("Uso: tarvopos-admin ORDEN ...\n"));
  for (const Orden& o : kOrdenes) {
    Decir(QStringLiteral("  %1 %2\n      %3")
              .arg(QString::fromUtf16(o.nombre), QString::fromUtf16(o.forma), QString::fromUtf16(o.ayuda)));
  }
  Decir(QStringLiteral(
      "  ayuda\n      muestra esto, como --help\n  --version\n      muestra la versión\n\nSalida: 0 bien, 1 no se "
      "pudo hacer, 2 llamada incorrecta"));
  Decir(QStringLiteral("        «guion» termina con el estado del programa cuando éste acaba por sí mismo\n"));
  Decir(QStringLiteral("Acciones de un guion, una por línea; «#» comenta:"));
  for (const QString& uso : usosDeAcciones()) Decir(QStringLiteral("  ") + uso);
}

QStringList palabrasDe(int argc, char** argv) {
  QStringList palabras;
#ifdef Q_OS_WIN
  for (int i = 1; i < argc; ++i) palabras << QString::fromLocal8Bit(argv[i]);
#else
  for (int i = 1; i < argc; ++i) palabras << QString::fromUtf8(argv[i]);
#endif
  return palabras;
}

}  // namespace

int main(int argc, char** argv) {
  FallasDeEscrituraComoErrores();
  NombrarZona();
  QStringList palabras = palabrasDe(argc, argv);
  const QString nombre = palabras.isEmpty() ? QString() : palabras.takeFirst();
  for (const Orden& o : kOrdenes) {
    if (nombre != QStringView(o.nombre)) continue;
    if (o.conVentanas) return o.hacer(palabras);
    QCoreApplication app(argc, argv);
    return o.hacer(palabras);
  }
  if (nombre.isEmpty() || nombre == u"ayuda" || nombre == u"--ayuda" || nombre == u"--help" || nombre == u"-h") {
    ayuda();
    return kBien;
  }
  if (nombre == u"--version") {
    Decir(QStringLiteral("tarvopos-admin ") + Version());
    return kBien;
  }
  Quejarse(QStringLiteral("No existe la orden «%1». Use «tarvopos-admin ayuda».").arg(nombre));
  return kMalUso;
}
