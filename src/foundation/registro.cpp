#include "foundation/registro.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include "platform/text/fecha.h"
#include "platform/text/texto.h"

void Registro::RegistrarErrorLog(const QString& texto) { agregar(QStringLiteral("Err_"), texto); }

void Registro::RegistrarImpresion(const QString& texto) { agregar(QStringLiteral("Imp_"), texto); }

void Registro::BorrarViejos(int dias) {
  static const QRegularExpression diario(QStringLiteral("^(Err|Imp|Sincro)_(\\d{8})\\.log$"));
  const QDate desde = reloj_.now().date().addDays(-dias);
  const QStringList archivos = QDir(rutas_.programa).entryList({QStringLiteral("*_*.log")}, QDir::Files);
  for (const QString& nombre : archivos) {
    const QDate dia = QDate::fromString(diario.match(nombre).captured(2), QStringLiteral("yyyyMMdd"));
    if (dia.isValid() && dia < desde) QFile::remove(rutas_.enPrograma(nombre));
  }
}

void Registro::agregar(const QString& tronco, const QString& texto) {
  const QDateTime ahora = reloj_.now();
  QFile f(rutas_.enPrograma(tronco + FormatearFecha(ahora, u"yyyymmdd") + QStringLiteral(".log")));
  if (!f.open(QIODevice::Append)) return;
  f.write(AUnByte(FormatearFecha(ahora, u"dd/mm/yyyy hh:nn:ss") + u' ' + texto + QStringLiteral("\r\n")));
}
