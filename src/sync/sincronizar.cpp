#include "sync/sincronizar.h"

#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "sync/depuracion.h"
#include "sync/envio.h"
#include "sync/maestros.h"
#include "sync/pagos_anulados.h"
#include "sync/updt.h"

namespace {

bool abrirCentral(Puesto& p, FrmUpdt& pantalla) {
  if (p.poDBAdmin.AbrirBD(p.poCnnCentral, p.ses.psConexionCentral)) return true;
  pantalla.porque =
      QStringLiteral("El servidor central no responde. La caja sigue trabajando; lo pendiente se enviará en la próxima "
                     "sincronización.");
  return false;
}

bool leerMarca(Puesto& p, QString& marca) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u"SELECT dFechSincro FROM Sincronizacion"_sql, rs)) return false;
  if (rs.RecordCount() == 1) marca = FormatearFecha(rs[0].toDateTime(), u"yyyymmdd");
  return true;
}

// By the server's date, not the desk's.
bool moverMarca(Puesto& p) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnCentral, u"SELECT FECHA = GETDATE()"_sql, rs)) return false;
  const Texto fecha(FormatearFecha(rs[0].toDateTime(), u"yyyy/mm/dd"));
  qint64 filas = 0;
  if (!p.poDBAdmin.EjecutarSentencia(
          p.poCnnLocal, FormatearSQL(u"UPDATE Sincronizacion SET dFechSincro = '$'"_sql, {fecha}), true, &filas)) {
    return false;
  }
  return filas > 0 ||
         p.poDBAdmin.EjecutarSentencia(
             p.poCnnLocal, FormatearSQL(u"INSERT INTO Sincronizacion (dFechSincro) VALUES ('$')"_sql, {fecha}), true);
}

bool pasos(Puesto& p, FrmUpdt& pantalla) {
  QString marca;
  if (!abrirCentral(p, pantalla)) return false;
  if (!p.poDBAdmin.EjecutarSentencia(p.poCnnCentral, u"SET LANGUAGE Spanish"_sql)) {
    p.mensajes.mostrar(QStringLiteral("No se pudo realizar la operación de cambio de Idioma"));
  }
  if (!leerMarca(p, marca)) return false;
  pantalla.alMostrar();
  if (!p.ses.pbSincronizaMaestros) {
    pantalla.AumentaBarra(70);
  } else {
    pantalla.sePuedeDetener = true;
    pantalla.alCambiar();
    const FinPasada fin = TraerMaestros(p, pantalla, marca);
    pantalla.sePuedeDetener = false;
    if (fin != FinPasada::Bien) return false;
  }
  return AnularRecibosAnulados(p, pantalla) && EnviarOperaciones(p, pantalla) == FinPasada::Bien &&
         DepurarHistoria(p, pantalla) && moverMarca(p);
}

}  // namespace

bool Sincronizar(Puesto& p, FrmUpdt& pantalla) {
  const bool bien = pasos(p, pantalla);
  if (bien) {
    pantalla.AumentaBarra(5);
    pantalla.Refrescar();
    pantalla.terminar(QStringLiteral("La Sincronización ha finalizado"));
    return true;
  }
  for (Conexion* cnn : {&p.poCnnLocal, &p.poCnnCentral}) {
    if (cnn->enTransaccion()) (void)cnn->deshacer();
  }
  const QString palabras = QStringLiteral("Hubieron errores en la sincronización");
  pantalla.lblEtiqueta = palabras;
  pantalla.terminar(palabras);
  if (!pantalla.porque.isEmpty()) {
    p.mensajes.mostrar(palabras + QStringLiteral(".\n") + pantalla.porque, Mensajes::kTitulo, Icono::Aviso);
  }
  return false;
}
