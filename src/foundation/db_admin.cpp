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

// A server that fell silent in the middle is left alone by the sales of the next minute, like one that can't be opened;
// the other one, opened before with all of a sale's time, has only the rest of it from now on.
void clsDBAdmin::anotarSilencio(const Conexion& cnn, const ErrorBD& error) {
  if (error.numero != kErrorTiempo) return;
  p_.ses.tiempoAgotado.insert(cnn.cadena(), p_.reloj.now());
  Conexion& otra = p_.poCnnCliente;
  if (&cnn == &otra || !otra.abierta() || otra.enTransaccion()) return;
  const QString cadena = otra.cadena();
  (void)otra.abrir(p_.motores, cadena, kEsperaOtra_ms);  // who uses it next finds out
}

bool clsDBAdmin::EjecutarConsulta(Conexion& cnn, const Sql& sql, Recordset& rs) {
  return decirFallo(cnn, sql, cnn.consultar(sql, rs));
}

bool clsDBAdmin::SeguirConsulta(Conexion& cnn, const Sql& sql, CursorBD& cursor, qsizetype filas, Recordset& rs) {
  return decirFallo(cnn, sql, cursor.seguir(filas, rs));
}

// True without an error.
bool clsDBAdmin::decirFallo(Conexion& cnn, const Sql& sql, const std::optional<ErrorBD>& error) {
  if (!error) return true;
  anotarSilencio(cnn, *error);
  p_.mensajes.mostrar(error->descripcion + QStringLiteral(" - ") + sql.texto(cnn.dialecto()));
  return false;
}

bool clsDBAdmin::EjecutarSentencia(Conexion& cnn, const Sql& sql, bool flagMensaje, qint64* afectadas) {
  const auto error = cnn.ejecutar(sql, afectadas);
  if (!error) return true;
  anotarSilencio(cnn, *error);
  if (flagMensaje && !error->claveDuplicada()) {
    p_.mensajes.mostrar(error->descripcion + QStringLiteral(" - ") + sql.texto(cnn.dialecto()));
  }
  return false;
}

QString LimpiarNulo(const QVariant& valor) { return valor.isNull() ? QString() : textoDe(valor); }

QString LimpiarNulo(const CeldaBD& valor) {
  if (valor.tipo == CeldaBD::Tipo::Entera) return QString::number(valor.entera);
  return LimpiarNulo(valor.valor());
}

double Numero(const CeldaBD& valor) {
  if (valor.tipo == CeldaBD::Tipo::Entera) return static_cast<double>(valor.entera);
  if (valor.tipo == CeldaBD::Tipo::Real) return valor.real;
  return Numero(valor.valor());
}

double Numero(const QVariant& valor) {
  switch (valor.typeId()) {
    case QMetaType::Double:
    case QMetaType::LongLong:
    case QMetaType::Int: return valor.toDouble();
    default: return valor.isNull() ? 0 : Val(valor.toString());
  }
}
