#include "platform/ui/ciclo_ventanas.h"

bool CicloVentanas::notify(QObject* quien, QEvent* evento) {
  try {
    return QApplication::notify(quien, evento);
  } catch (const std::exception& e) {
    if (!alRomper) throw;
    alRomper(QString::fromUtf8(e.what()));
    return true;
  }
}
