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

const QString kConvert = QStringLiteral("CONVERT(DATETIME,'");

// A value as the statements carry it: trimmed text, numbers without a mask.
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
  const bool venta = espera == Espera::Venta;
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
  if (venta && error->numero == kErrorTiempo) agotados.insert(cadena, p_.reloj.now());
  if (flagMensaje) {
    p_.mensajes.mostrar(QStringLiteral("No se pudo conectar a la BD de Logistica en SQL SERVER. \n") +
                        error->descripcion);
  }
  return false;
}

void clsDBAdmin::CerrarBD(Conexion& cnn) { cnn.cerrar(); }

bool clsDBAdmin::EjecutarConsulta(Conexion& cnn, const Sql& sql, Recordset& rs) {
  return EjecutarConsulta(cnn, sql.texto(cnn.dialecto()), rs);
}

bool clsDBAdmin::EjecutarSentencia(Conexion& cnn, const Sql& sql, bool flagMensaje, qint64* afectadas) {
  return EjecutarSentencia(cnn, sql.texto(cnn.dialecto()), flagMensaje, afectadas);
}

bool clsDBAdmin::EjecutarConsulta(Conexion& cnn, const QString& sql, Recordset& rs) {
  const auto error = cnn.consultar(sql, rs);
  if (!error) return true;
  p_.mensajes.mostrar(error->descripcion + QStringLiteral(" - ") + sql);
  return false;
}

bool clsDBAdmin::EjecutarSentencia(Conexion& cnn, const QString& sql, bool flagMensaje, qint64* afectadas) {
  const auto error = cnn.ejecutar(sql, afectadas);
  if (!error) return true;
  if (flagMensaje && !error->claveDuplicada()) {
    p_.mensajes.mostrar(error->descripcion + QStringLiteral(" - ") + sql);
  }
  return false;
}

QString FormatearSQL(const QString& plantilla, const std::vector<QVariant>& valores) {
  QString sale;
  sale.reserve(plantilla.size() + 16 * static_cast<qsizetype>(valores.size()));
  size_t n = 0;
  for (qsizetype i = 0; i < plantilla.size(); ++i) {
    if (plantilla[i] != u'$') {
      sale += plantilla[i];
      continue;
    }
    Q_ASSERT_X(n < valores.size(), "FormatearSQL", "fewer values than places");
    const QVariant valor = n < valores.size() ? valores[n++] : QVariant();
    if (!valor.isNull()) {
      sale += textoDe(valor);
      continue;
    }
    const QStringView antes = QStringView(plantilla).left(i);
    const QStringView despues = QStringView(plantilla).mid(i + 1);
    if (antes.endsWith(kConvert) && despues.startsWith(u"')")) {
      sale.chop(kConvert.size());
      i += 2;
    } else if (antes.endsWith(u'\'') && despues.startsWith(u'\'')) {
      sale.chop(1);
      ++i;
    }
    sale += QStringLiteral("Null");
  }
  return sale;
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
