#include "admin/demo.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QWidget>

#include "admin/argumentos.h"
#include "admin/demo_papel.h"
#include "admin/guion.h"
#include "admin/guion_acciones.h"
#include "admin/guion_escenario.h"
#include "admin/ordenes.h"
#include "alta/crear_puesto.h"

namespace {

const QString kSupervisor = QStringLiteral("SUPERVISOR"), kClave = QStringLiteral("super");

// The splash is there only while the program sleeps, when no action of a play can look at it.
void retratarPortada(const QString& carpeta) {
  for (QWidget* w : QApplication::topLevelWidgets()) {
    if (w->windowType() != Qt::SplashScreen || !w->isVisible()) continue;
    if (QDir().mkpath(carpeta)) w->grab().save(carpeta + QStringLiteral("/00-portada.png"), "PNG");
  }
}

void mostrarPapel(const QString& carpeta, const QString& puerto) {
  QFile f(carpeta + u'/' + puerto);
  if (!f.open(QIODevice::ReadOnly)) {
    Decir(QStringLiteral("No se imprimió nada en %1.").arg(puerto));
    return;
  }
  Decir(QStringLiteral("Lo impreso en %1:\n").arg(puerto));
  Decir(TextoDePapel(f.readAll()));
}

}  // namespace

int ordenDemo(const QStringList& palabras) {
  Argumentos a;
  if (const auto error = LeerArgumentos(palabras, {1, 1, {}, {}}, a)) {
    Quejarse(*error + QStringLiteral(" Use «tarvopos-admin ayuda»."));
    return kMalUso;
  }
  const QString carpeta = QDir(a.lugares[0]).absolutePath();
  DatosPuesto d;
  d.carpeta = carpeta;
  d.usuario = kSupervisor;
  d.clave = kClave;
  d.demo = true;
  d.ahora = RelojSistema().now();
  if (const auto error = CrearPuesto(d)) {
    Quejarse(*error);
    return kFallo;
  }

  const AplicacionGrafica app;
  const QString capturas = carpeta + QStringLiteral("/capturas");
  EscritorGuion escritor(EscritorGuion::Detalle::SinOk);
  const OpcionesGuion opciones{QStringLiteral(":/guiones/dia.guion"), carpeta, capturas};
  const int estado = tocarGuion(opciones, escritor, [&](EscenaGuion& escena) {
    escena.reloj.alDormir = [&](int) { retratarPortada(capturas); };
  });
  if (estado != kBien) return estado;
  for (const char* puerto : {"LPT1", "LPT2"}) mostrarPapel(carpeta + QStringLiteral("/puertos"), QLatin1String(puerto));
  Decir(QStringLiteral("Papel:     %1/puertos\nPantallas: %2").arg(carpeta, capturas));
  return kBien;
}
