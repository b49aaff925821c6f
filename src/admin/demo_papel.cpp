#include "admin/demo_papel.h"

#include <QStringList>

#include "platform/text/texto.h"

namespace {

// Length of the command that begins at `bytes[i]`, 0 when none does.
qsizetype largoDeOrden(const QByteArray& bytes, qsizetype i) {
  const char siguiente = i + 1 < bytes.size() ? bytes[i + 1] : '\0';
  if (bytes[i] == '\x1D') return siguiente == 'V' ? 3 : 2;  // cut
  if (bytes[i] != '\x1B') return 0;
  return siguiente == 'p' || siguiente == '\x07' ? 5 : 2;  // drawer, else reset
}

}  // namespace

QString TextoDePapel(const QByteArray& bytes) {
  QByteArray limpio;
  for (qsizetype i = 0; i < bytes.size();) {
    const qsizetype orden = largoDeOrden(bytes, i);
    if (orden == 0 && bytes[i] != '\r') limpio += bytes[i];
    i += orden == 0 ? 1 : orden;
  }
  QString texto;
  bool blanca = true;  // blank lines at the top are left out
  QString pendiente;
  for (const QString& linea : DeUnByte(limpio).split(u'\n')) {
    if (Recortar(linea).isEmpty()) {
      if (!blanca) pendiente = QStringLiteral("\n");
      continue;
    }
    texto += pendiente + linea + u'\n';
    pendiente.clear();
    blanca = false;
  }
  return texto;
}
