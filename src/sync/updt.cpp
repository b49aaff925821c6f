#include "sync/updt.h"

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

void FrmUpdt::InsertaLinea(const QString& linea) {
  ++lineas;
  if (linea.startsWith(u'N')) ++errores;
  lstLog.push_back(linea);
  if (lstLog.size() > kLineasALaVista) lstLog.pop_front();
  if (archivo_.isOpen()) {
    const QTime ahora = p_.reloj.now().time();
    // Thousands of lines fall into one second.
    if (const int segundo = ahora.msecsSinceStartOfDay() / 1000; segundo != segundo_) {
      segundo_ = segundo;
      hora_ = AUnByte(ahora.toString(QStringLiteral("HH:mm:ss ")));
    }
    archivo_.write(hora_ + AUnByte(linea) + "\r\n");
  }
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
