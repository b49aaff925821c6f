#include "voiding/pantalla_transaccion.h"

#include "documento/clase.h"
#include "foundation/puesto.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "voiding/anulacion.h"
#include "voiding/reimpresion.h"

namespace {

constexpr LiteralSql kFiscales = u" cDocTipo in ('02', '01')"_sql;

qint64 entero(const QVariant& v) { return AEntero(Numero(v)); }

// Fields of a match to the screen, which then loads it.
void mostrarHallada(Puesto& p, PantallaTransaccion& v, const Recordset& rs, bool silencio) {
  v.txttipo = LimpiarNulo(rs[u"cdocTipo"]);
  v.txtSerie = LimpiarNulo(rs[u"cdocSerie"]);
  v.txtNumero = LimpiarNulo(rs[u"cDocCodigo"]);
  v.txtTransaccion = LimpiarNulo(rs[u"cOpercode"]);
  BuscarTransaccion(p, v, silencio);
}

// The document of `tabla` with the highest code, among those of `condicion`; false when there is none.
bool buscarUltima(Puesto& p, LiteralSql tabla, LiteralSql condicion, Recordset& rs) {
  const Sql donde = tabla + u" WHERE"_sql + condicion;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u" SELECT MAX(cOpercode) as max  FROM "_sql + donde, rs))
    return false;
  const qint64 codigo = entero(rs[u"max"]);
  if (codigo <= 0) return false;
  return p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                      u"SELECT cdocTipo, cdocSerie, cDocCodigo, cOpercode FROM "_sql + donde +
                                          FormatearSQL(u" AND cOperCode= $"_sql, {codigo}),
                                      rs) &&
         !rs.Eof();
}

// Which documents the search by series and number looks through.
Sql condicionBase(const PantallaTransaccion& v) {
  const bool anular = v.uso == Uso::Anular;
  if (v.chkAlterno) return anular ? u" (cOperFlagAbierto = 1 OR cestado='1') "_sql : u" cestado='1' "_sql;
  // Only sales: the money of a parallel document lies in the same table under a code that another sale may have.
  return u" cOperFlagAnula = 0  "_sql + (anular ? u" AND cOperFlagAbierto = 1 "_sql : Sql()) + u" AND"_sql + kFiscales;
}

bool registrarCambio(Puesto& p, const QDateTime& fecha, double& cambio) {
  cambio = 0;
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(u" SELECT nTipoCambMont FROM Tipo_Cambio WHERE FORMAT(dTipoCambFech, 'yyyy/mm/dd') = '$'"_sql,
                       {Texto(FormatearFecha(fecha, u"yyyy/mm/dd"))}),
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

// Why the screen may not work on the document; "" when it may.
QString rechazo(Uso uso, const DocumentoGuardado& t) {
  const bool anular = uso == Uso::Anular;
  if (anular && !t.abierta) return noExiste(uso);
  if (t.paralela) {
    if (t.tipo == TipoOperacion::LIQPAD && !t.anulada) {
      return QStringLiteral("Esta es una transacción de liquidación. No puede ser anulada");
    }
    // The centre keeps it too: there both go together.
    if (anular && t.vigente && t.glosa == kGlosaPago) {
      return QStringLiteral("Es un pago de Venta Futura. Anúlelo con «Anular Pago» en Venta Futura, Operaciones.");
    }
    return t.vigente ? QString() : noExiste(uso);
  }
  if (anular && t.anulada) {
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
  if (!buscarUltima(p, u"Operacion"_sql, kFiscales, rs)) return;
  if (v.uso == Uso::Anular) {
    DocumentoGuardado t;
    bool anulada = false;
    if (LeerDocumento(p, entero(rs[u"cOpercode"]), false, t) != LecturaDocumento::Leida ||
        !LeerAnulada(p, t, anulada) || anulada) {
      return;
    }
  }
  mostrarHallada(p, v, rs, silencio);
}

void Busca_operparalela(Puesto& p, PantallaTransaccion& v) {
  Recordset rs;
  if (buscarUltima(p, u"OperacionParalela"_sql, u" (cOperCodeAnul = 0 OR cOperTipo=3 )  AND cEstado = '1' "_sql, rs)) {
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
  Sql condicion = condicionBase(v);
  const QString serie = Recortar(v.txtSerie), numero = Recortar(v.txtNumero);
  if (!serie.isEmpty()) condicion += FormatearSQL(u" And cdocSerie like '$'"_sql, {Texto(serie)});
  // "000005" is number 5
  if (!numero.isEmpty()) condicion += FormatearSQL(u" And cDocCodigo like '$'"_sql, {Texto(TextoDe(Val(numero)))});
  Recordset rs;
  const Sql consulta = u"Select distinct cdocTipo, cdocSerie, cDocCodigo, cOpercode FROM "_sql +
                       (v.chkAlterno ? u"OperacionParalela"_sql : u"Operacion"_sql) + u" WHERE "_sql + condicion;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, consulta, rs)) return;
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
  DocumentoGuardado t;
  const LecturaDocumento lectura = LeerDocumento(p, AEntero(Val(codigo)), v.chkAlterno, t);
  if (lectura == LecturaDocumento::Fallo) return;
  const QString texto = lectura == LecturaDocumento::NoExiste ? noExiste(v.uso) : rechazo(v.uso, t);
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
