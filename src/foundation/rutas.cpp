#include "foundation/rutas.h"

Rutas rutasDe(const QString& carpeta) {
  Rutas r;
  r.programa = carpeta;
  while (r.programa.size() > 1 && (r.programa.endsWith(u'/') || r.programa.endsWith(u'\\'))) r.programa.chop(1);
#ifdef Q_OS_WIN
  r.temp = QStringLiteral("C:\\Temp");
#else
  r.temp = r.programa + QStringLiteral("/Temp");
#endif
  return r;
}
