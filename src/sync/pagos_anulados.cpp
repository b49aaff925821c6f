#include "sync/pagos_anulados.h"

#include <QSet>
#include <algorithm>

#include "documento/filas_paralelas.h"
#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "sync/updt.h"

namespace {

// Receipts asked for at once.
constexpr qsizetype kTanda = 250;

struct Recibo {
  qint64 codigo = 0;
  TipoOperacion tipo{};
  QString serie, numero;  // as the centre writes it: six digits at least

  QString nombre() const { return serie + u'-' + numero; }
};

bool leerAbiertos(Puesto& p, QList<Recibo>& recibos) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(u"SELECT cOperCode, cOperTipo, cDocSerie, cDocCodigo FROM OperacionParalela WHERE cOperTipo IN"
                       " ($) AND sGlosa = '$' AND cEstado = '1' AND cOperFlagAbierto = 1 ORDER BY cOperCode"_sql,
                       {Codigos({TipoOperacion::PADE, TipoOperacion::PADV}), Texto(kGlosaPago)}),
          rs)) {
    return false;
  }
  for (const auto& f : rs) {
    recibos.push_back({AEntero(Numero(f[u"cOperCode"])), static_cast<TipoOperacion>(AEntero(Numero(f[u"cOperTipo"]))),
                       LimpiarNulo(f[u"cDocSerie"]), Formatear(Numero(f[u"cDocCodigo"]), u"000000")});
  }
  return true;
}

bool leerAnulados(Puesto& p, const QList<Recibo>& recibos, QSet<QString>& anulados) {
  std::vector<Sql> numeros;
  for (const Recibo& r : recibos) numeros.push_back(FormatearSQL(u"'$'"_sql, {Texto(r.numero)}));
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnCentral,
          FormatearSQL(u"SELECT cSerieDocPago, NroDocPago FROM Pagos WHERE FechaAnulacion IS NOT NULL"
                       " AND NroDocPago IN ($)"_sql,
                       {UnirSql(numeros, u", "_sql)}),
          rs)) {
    return false;
  }
  for (const auto& f : rs) anulados.insert(LimpiarNulo(f[0]) + u'-' + LimpiarNulo(f[1]));
  return true;
}

bool anularRecibo(Puesto& p, FrmUpdt& pantalla, const Recibo& r) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u"SELECT MAX(cOperCode) AS maximo FROM OperacionParalela"_sql, rs)) {
    return false;
  }
  const auto error =
      EjecutarJuntas(p.poCnnLocal, SentenciasAnularParalela(p, r.tipo, r.codigo, AEntero(Numero(rs[0])) + 1,
                                                            FormatearFecha(p.reloj.now(), u"DD/MM/YYYY hh:mm")));
  if (error) {
    p.mensajes.mostrar(error->descripcion);
    return false;
  }
  pantalla.InsertaLinea(QStringLiteral("Anulado el recibo ") + r.nombre() +
                        QStringLiteral(": otra caja anuló su pago"));
  return true;
}

}  // namespace

bool AnularRecibosAnulados(Puesto& p, FrmUpdt& pantalla) {
  QList<Recibo> recibos;
  if (!leerAbiertos(p, recibos)) return false;
  for (qsizetype i = 0; i < recibos.size(); i += kTanda) {
    const QList<Recibo> tanda = recibos.mid(i, kTanda);
    QSet<QString> anulados;
    if (!leerAnulados(p, tanda, anulados)) return false;
    for (const Recibo& r : tanda) {
      if (anulados.contains(r.nombre()) && !anularRecibo(p, pantalla, r)) return false;
    }
  }
  return true;
}
