#include "voiding/busqueda.h"

#include "documento/clase.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "voiding/anulacion.h"
#include "voiding/reimpresion.h"

namespace {

const QString kTiposFiscales = QStringLiteral("('02', '01')");

qint64 entero(const QVariant& v) { return AEntero(Numero(v)); }

// Fields of a match to the screen, which then loads it.
void mostrarHallada(Puesto& p, PantallaTransaccion& v, const Recordset& rs, bool silencio) {
  v.txttipo = LimpiarNulo(rs[u"cdocTipo"]);
  v.txtSerie = LimpiarNulo(rs[u"cdocSerie"]);
  v.txtNumero = LimpiarNulo(rs[u"cDocCodigo"]);
  v.txtTransaccion = LimpiarNulo(rs[u"cOpercode"]);
  BuscarTransaccion(p, v, silencio);
}

// The document with the highest code that `maximo` finds; false when there is none.
bool buscarUltima(Puesto& p, const QString& tabla, const QString& maximo, const QString& filtro, Recordset& rs) {
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, maximo, rs)) return false;
  const qint64 codigo = entero(rs[u"max"]);
  if (codigo <= 0) return false;
  return p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                      QStringLiteral("SELECT cdocTipo, cdocSerie, cDocCodigo, cOpercode FROM ") +
                                          tabla + FormatearSQL(QStringLiteral(" WHERE cOperCode= $"), {codigo}) +
                                          filtro,
                                      rs) &&
         !rs.Eof();
}

// Which documents the search by series and number looks through.
QString condicionBase(const PantallaTransaccion& v) {
  const bool anular = v.uso == Uso::Anular;
  if (v.chkAlterno) {
    return anular ? QStringLiteral(" (cOperFlagAbierto = 1 OR cestado='1') ") : QStringLiteral(" cestado='1' ");
  }
  // Only sales: the money of a parallel document lies in the same table under a code that another sale may have.
  return QStringLiteral(" cOperFlagAnula = 0  ") + (anular ? QStringLiteral(" AND cOperFlagAbierto = 1 ") : QString()) +
         QStringLiteral(" AND cDocTipo IN ") + kTiposFiscales;
}

bool registrarCambio(Puesto& p, const QDateTime& fecha, double& cambio) {
  cambio = 0;
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          QStringLiteral(" SELECT nTipoCambMont FROM Tipo_Cambio WHERE FORMAT(dTipoCambFech, 'yyyy/mm/dd') = '") +
              FormatearFecha(fecha, u"yyyy/mm/dd") + QStringLiteral("'"),
          rs)) {
    return false;
  }
  if (rs.RecordCount() != 1) return false;
  cambio = Numero(rs[u"nTipoCambMont"]);
  return true;
}

void CapturaTipoCambio(Puesto& p, const QDateTime& fecha, double& cambio) {
  if (registrarCambio(p, fecha, cambio)) return;
  p.mensajes.mostrar(QStringLiteral("Para registrar ventas en dólares debe registrar el tipo de cambio"));
}

QString noExiste(Uso uso) {
  return uso == Uso::Anular ? QStringLiteral("El número de transacción no existe o ya ha sido cerrada.")
                            : QStringLiteral("El número de transacción no existe.");
}

// Why the screen may not work on the document; "" when it may. A void that was cut off is taken up where it stopped.
QString rechazo(Puesto& p, Uso uso, const Transaccion& t) {
  const bool anular = uso == Uso::Anular;
  const auto aMedias = [&] {
    AvanceAnulacion avance;
    return anular && t.anulada && LeerAvance(p, t, avance) && avance.estado == Anulada::AMedias;
  };
  if (anular && !t.abierta) return noExiste(uso);
  if (t.paralela) {
    if (t.tipo == TipoOperacion::LIQPAD && !t.anulada) {
      return QStringLiteral("Esta es una transacción de liquidación. No puede ser anulada");
    }
    return t.vigente || aMedias() ? QString() : noExiste(uso);
  }
  if (anular && t.anulada && !aMedias()) {
    return QStringLiteral("Esta es una transacción de anulación. No puede ser anulada");
  }
  if (t.tipo < TipoOperacion::Efectivo || t.tipo > TipoOperacion::Liquidado) {
    return QStringLiteral("No es una transacción de venta.");
  }
  return t.lineas.empty() ? noExiste(uso) : QString();
}

}  // namespace

void AbrirTransacciones(Puesto& p, PantallaTransaccion& v) { Busca_operacion(p, v, true); }

void Busca_operacion(Puesto& p, PantallaTransaccion& v, bool silencio) {
  Recordset rs;
  if (!buscarUltima(p, QStringLiteral("Operacion"),
                    QStringLiteral(" SELECT MAX(cOpercode) as max  FROM Operacion WHERE cDocTipo in ") + kTiposFiscales,
                    QStringLiteral(" AND cDocTipo in ") + kTiposFiscales, rs)) {
    return;
  }
  if (v.uso == Uso::Anular) {
    Transaccion t;
    AvanceAnulacion avance;
    if (LeerTransaccion(p, entero(rs[u"cOpercode"]), false, t) != LecturaTransaccion::Leida ||
        !LeerAvance(p, t, avance) || avance.estado == Anulada::Del_todo) {
      return;
    }
  }
  mostrarHallada(p, v, rs, silencio);
}

void Busca_operparalela(Puesto& p, PantallaTransaccion& v) {
  Recordset rs;
  if (buscarUltima(p, QStringLiteral("OperacionParalela"),
                   QStringLiteral("SELECT max(cOperCode) AS MAX FROM OperacionParalela"
                                  " WHERE (cOperCodeAnul = 0 OR cOperTipo=3 )  AND cEstado = '1' "),
                   {}, rs)) {
    mostrarHallada(p, v, rs, false);
  } else {
    BuscarTransaccion(p, v);
  }
}

void CambiarAlterno(Puesto& p, PantallaTransaccion& v, bool marcado) {
  v.chkAlterno = marcado;
  if (!marcado) {
    Busca_operacion(p, v);
    return;
  }
  v.txttipo.clear();
  v.txtNumero.clear();
  v.txtSerie.clear();
  Busca_operparalela(p, v);
}

void BuscarDocumento(Puesto& p, PantallaTransaccion& v) {
  QString condicion = condicionBase(v) + u' ';
  const QString serie = Recortar(v.txtSerie), numero = Recortar(v.txtNumero);
  if (!serie.isEmpty()) {
    condicion += QStringLiteral(" And cdocSerie like '") + ReemplazarComilla(serie) + QStringLiteral("'");
  }
  if (!numero.isEmpty()) {  // "000005" is number 5
    condicion += QStringLiteral(" And cDocCodigo like '") + TextoDe(Val(numero)) + QStringLiteral("'");
  }
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          QStringLiteral("Select distinct cdocTipo, cdocSerie, cDocCodigo, cOpercode FROM ") +
              (v.chkAlterno ? QStringLiteral("OperacionParalela") : QStringLiteral("Operacion")) +
              QStringLiteral(" WHERE ") + condicion,
          rs)) {
    return;
  }
  if (rs.Eof()) {
    p.mensajes.mostrar(QStringLiteral("No existen coincidencias para el documento"));
    v.txtTexto.clear();
    v.txtTransaccion.clear();
    v.cargada.reset();
    v.accion = false;
    return;
  }
  v.accion = true;
  if (rs.RecordCount() == 1) mostrarHallada(p, v, rs, false);
}

void BuscarTransaccion(Puesto& p, PantallaTransaccion& v, bool silencio) {
  const QString codigo = Recortar(v.txtTransaccion);
  if (!EsNumerico(codigo)) return;
  v.cargada.reset();
  Transaccion t;
  const LecturaTransaccion lectura = LeerTransaccion(p, AEntero(Val(codigo)), v.chkAlterno, t);
  if (lectura == LecturaTransaccion::Fallo) return;
  const QString texto = lectura == LecturaTransaccion::NoExiste ? noExiste(v.uso) : rechazo(p, v.uso, t);
  if (texto.isEmpty()) {
    v.txttipo = t.docTipo;
    v.txtSerie = t.docSerie;
    v.txtNumero = t.docNumero;
    CapturaTipoCambio(p, t.fecha, v.tipoCambio);
    v.cargada = std::move(t);
    if (v.uso == Uso::Anular) {
      MuestraTransaccion(p, v);
    } else {
      MuestraReimpresion(p, v);
      v.accion = true;
    }
    return;
  }
  if (t.paralela && t.tipo == TipoOperacion::LIQPAD) v.accion = false;
  const bool falta = texto == noExiste(v.uso);
  if (falta) {
    v.txtTexto.clear();
    v.txtTransaccion.clear();
  }
  if (!falta || !silencio) p.mensajes.mostrar(texto);
}
