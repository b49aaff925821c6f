#include "foundation/db_admin.h"

#include "foundation/acto_doble.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

constexpr int kEsperaNormal_ms = 20'000;
constexpr int kEsperaVenta_ms = 1'700;
constexpr int kEsperaOtra_ms = 250;  // of a sale that has just waited for another server: two seconds in all
constexpr int kDescanso_s = 60;

// Trimmed, numbers without a mask.
QString textoDe(const QVariant& valor) {
  switch (valor.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float: return TextoDe(valor.toDouble());
    case QMetaType::QDateTime: return FormatearFecha(valor.toDateTime(), u"dd/mm/yyyy hh:nn:ss");
    case QMetaType::Bool: return valor.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    default: return Recortar(valor.toString());
  }
}

}  // namespace

bool clsDBAdmin::AbrirBD(Conexion& cnn, const QString& cadena, bool flagMensaje, Espera espera) {
  auto& agotados = p_.ses.tiempoAgotado;
  // A session that began without the central database must not stand still each time it looks for it.
  const bool sinCentral = p_.ses.bSinCentral && cadena == p_.ses.psConexionCentral;
  const bool venta = espera == Espera::Venta || sinCentral;
  int espera_ms = kEsperaNormal_ms;
  if (venta) {
    agotados.removeIf([ahora = p_.reloj.now()](const auto& uno) {
      const qint64 hace = uno.value().secsTo(ahora);
      return hace < 0 || hace >= kDescanso_s;
    });
    if (agotados.contains(cadena)) {
      cnn.cerrar();
      return false;
    }
    espera_ms = agotados.isEmpty() ? kEsperaVenta_ms : kEsperaOtra_ms;
  }
  const auto error = cnn.abrir(p_.motores, cadena, espera_ms);
  if (cadena == p_.ses.psConexionCentral) p_.ses.bCentralCaida = error.has_value();
  if (!error) {
    agotados.remove(cadena);
    MirarActos(p_, cnn, cadena);
    return true;
  }
  ultimoFallo_ = error->descripcion;
  if (venta && error->numero == kErrorTiempo) agotados.insert(cadena, p_.reloj.now());
  if (flagMensaje) {
    p_.mensajes.mostrar(QStringLiteral("No se pudo conectar a la BD de Logistica en SQL SERVER. \n") +
                        error->descripcion);
  }
  return false;
}

void clsDBAdmin::CerrarBD(Conexion& cnn) { cnn.cerrar(); }

bool clsDBAdmin::EjecutarConsulta(Conexion& cnn, const Sql& sql, Recordset& rs) {
  const auto error = cnn.consultar(sql, rs);
  if (!error) return true;
  p_.mensajes.mostrar(error->descripcion + QStringLiteral(" - ") + sql.texto(cnn.dialecto()));
  return false;
}

bool clsDBAdmin::EjecutarSentencia(Conexion& cnn, const Sql& sql, bool flagMensaje, qint64* afectadas) {
  const auto error = cnn.ejecutar(sql, afectadas);
  if (!error) return true;
  if (flagMensaje && !error->claveDuplicada()) {
    p_.mensajes.mostrar(error->descripcion + QStringLiteral(" - ") + sql.texto(cnn.dialecto()));
  }
  return false;
}

QString LimpiarNulo(const QVariant& valor) { return valor.isNull() ? QString() : textoDe(valor); }

double Numero(const QVariant& valor) {
  switch (valor.typeId()) {
    case QMetaType::Double:
    case QMetaType::LongLong:
    case QMetaType::Int: return valor.toDouble();
    default: return valor.isNull() ? 0 : Val(valor.toString());
  }
}
