#include "foundation/registro.h"

#include <QFile>

#include "platform/text/fecha.h"
#include "platform/text/texto.h"

void Registro::RegistrarErrorLog(const QString& texto) { agregar(QStringLiteral("Err_"), texto); }

void Registro::RegistrarImpresion(const QString& texto) { agregar(QStringLiteral("Imp_"), texto); }

void Registro::agregar(const QString& tronco, const QString& texto) {
  const QDateTime ahora = reloj_.now();
  QFile f(rutas_.enPrograma(tronco + FormatearFecha(ahora, u"yyyymmdd") + QStringLiteral(".log")));
  if (!f.open(QIODevice::Append)) return;
  f.write(AUnByte(FormatearFecha(ahora, u"dd/mm/yyyy hh:nn:ss") + u' ' + texto + QStringLiteral("\r\n")));
}
