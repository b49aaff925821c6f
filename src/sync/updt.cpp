#include "sync/updt.h"

#include <algorithm>

#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/texto.h"

FrmUpdt::FrmUpdt(Puesto& p)
    : p_(p),
      archivo_(p.rutas.enPrograma(QStringLiteral("Sincro_%1.log").arg(FormatearFecha(p.reloj.now(), u"yyyymmdd")))) {
  // A log that can't be written is no reason to stop.
  if (archivo_.open(QIODevice::WriteOnly | QIODevice::Append)) {
    archivo_.write(
        AUnByte(FormatearFecha(p.reloj.now(), u"dd/mm/yyyy hh:nn:ss") + QStringLiteral(" Sincronización\r\n")));
  }
}

void FrmUpdt::insertar(std::vector<QString> nuevas) {
  if (nuevas.empty()) return;
  lineas += static_cast<qint64>(nuevas.size());
  errores += std::count_if(nuevas.begin(), nuevas.end(), [](const QString& l) { return l.startsWith(u'N'); });
  if (archivo_.isOpen()) {
    const QTime ahora = p_.reloj.now().time();
    // Thousands of lines fall into one second.
    if (const int segundo = ahora.msecsSinceStartOfDay() / 1000; segundo != segundo_) {
      segundo_ = segundo;
      hora_ = AUnByte(ahora.toString(QStringLiteral("HH:mm:ss ")));
    }
    QByteArray bloque;
    for (const QString& l : nuevas) bloque.append(hora_).append(AUnByte(l)).append("\r\n");
    archivo_.write(bloque);
  }
  const auto desde = nuevas.end() - static_cast<std::ptrdiff_t>(std::min(nuevas.size(), kLineasALaVista));
  lstLog.insert(lstLog.end(), std::make_move_iterator(desde), std::make_move_iterator(nuevas.end()));
  while (lstLog.size() > kLineasALaVista) lstLog.pop_front();
  alCambiar();
}

void FrmUpdt::AumentaBarra(int n) {
  if (prgBar < 100) prgBar = qMin(prgBar + n, 100);
  alCambiar();
}

void FrmUpdt::Refrescar() {
  lblEtiqueta =
      QStringLiteral("Se Sincronizaron %1 registros.\nHubieron %2 errores.").arg(lineas - errores).arg(errores);
  cmdClose = true;
  alCambiar();
}

void FrmUpdt::terminar(const QString& titulo) {
  Label1 = titulo;
  sePuedeDetener = false;
  prgBar = 0;
  archivo_.flush();
  alCambiar();
}
