#include "credit/acto_credito.h"
#include "credit/liquidacion_credito.h"
#include "credit/papel_credito.h"
#include "documento/commit_paralelo.h"
#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

std::optional<QString> falta(Puesto& p, const char16_t* aviso, const char* control) {
  p.mensajes.mostrar(QString::fromUtf16(aviso));
  return QString::fromLatin1(control);
}

std::optional<QString> validar(Puesto& p, const TabLiquidacion& v) {
  if (v.cboTipoDocumento3 < 0) return falta(p, u"Ingrese el Tipo Documento", "cboTipoDocumento3");
  if (Recortar(v.txtTXL).isEmpty()) return falta(p, u"Ingrese correctamente el nro documento", "txtTXL(0)");
  if (v.lvwTX[0].empty()) return falta(p, u"Debe ingresar 1 documento", "txtTXL(0)");
  if (v.lvwTX[0].size() > 1) return falta(p, u"Debe ingresar solo 1 documento", "lvwTX(0)");
  if (LeerImporte(v.txtVueltoSolesLQ) < 0) {
    return falta(p, u"No se puede registrar la operacion si el vuelto es negativo", "txtEfectivoSolesLQ");
  }
  return {};
}

struct Liquidacion {
  qint64 cCodVta = 0;
  double pagado = 0, consumido = 0;  // as they were loaded
  LiquidacionCredito papel;
  NumeroTomado numero;
  double dolares = 0;
  QString serieDinero;
  std::vector<qint64> notas;  // those of this store
};

// What the ticket and the rows take, read before anything is open.
bool tomar(Puesto& p, const TabLiquidacion& v, Liquidacion& l) {
  l.cCodVta = AEntero(Val(v.lvwTX[0].front().tx));
  l.pagado = v.pagado;
  l.consumido = v.consumido;
  l.papel.adelanto = LeerImporte(v.txtTotalPA);
  l.papel.diferencia = LeerImporte(v.txtSolesLQ);
  l.dolares = LeerImporte(v.txtDolaresLQ);
  l.papel.efectivo = {LeerImporte(v.txtEfectivoSolesLQ), LeerImporte(v.txtEfectivoDolaresLQ),
                      LeerImporte(v.txtVueltoSolesLQ), 0};
  CommitParalelo lectura;
  for (const LineaLQ& nota : v.lvwTX[1]) {
    if (!nota.deOtraCaja) l.notas.push_back(AEntero(Val(nota.tx)));
  }
  lectura.consumos = l.notas;
  if (!LeerConsumos(p, lectura) || !SerieDeBoletas(p, l.serieDinero)) return false;
  l.papel.notas = lectura.notas;
  l.papel.subtotal = lectura.subtotal;
  for (const LineaLQ& nota : v.lvwTX[1]) {
    if (!nota.deOtraCaja) continue;
    l.papel.notas.push_back({AEntero(Val(nota.tx)), {}});
    l.papel.subtotal += LeerImporte(nota.total);
  }
  return true;
}

void sentenciasLocales(const Puesto& p, const Liquidacion& l, ActoDoble& acto) {
  DatosOperacion o = OperacionDe(p, l.papel.documento, l.numero, TipoOperacion::LIQPAD);
  DatosParalela d;
  d.montoSoles = l.papel.diferencia;
  d.montoDolares = l.dolares;
  d.efectivo = l.papel.efectivo;
  const EfectivoDocumento& e = l.papel.efectivo;
  acto.enLocal = {l.numero.guardar, SentenciaParalela(p, o, d)};
  o.tipo = TipoOperacion::Efectivo;
  if (e.soles > 0 || e.dolares > 0 || e.vueltoSoles > 0) {
    acto.enLocal.push_back(SentenciaEfectivoParalelo(p, o, l.serieDinero, e));
  }
  acto.enLocal.push_back(SentenciaCerrarParalela(o.codigo));
  acto.deshacer = {l.numero.devolver,
                   FormatearSQL(u"DELETE FROM OperacionParalela WHERE cOperCode = $"_sql, {o.codigo}),
                   FormatearSQL(u"DELETE FROM Operacion WHERE cOperCode = $ AND cDocTipo = '$'"_sql,
                                {o.codigo, Texto(Codigo(TipoDocumento::LIQPAD))})};
  for (const qint64 nota : l.notas) {
    acto.enLocal.push_back(SentenciaCerrarParalela(nota));
    acto.deshacer.push_back(
        FormatearSQL(u"UPDATE OperacionParalela SET cEstado = '1' WHERE cOperCode = $"_sql, {nota}));
  }
}

std::optional<ErrorBD> preparar(Puesto& p, Liquidacion& l, ActoDoble& acto) {
  Conexion& central = p.poCnnCentral;
  EstadoDocumento e;
  if (auto error = LeerBloqueado(central, DeCodigo(l.cCodVta), e)) return error;
  if (e.saldoPropio() != 0 || Redondear(e.pagado - l.pagado, 2) != 0 || e.consumido != l.consumido) {
    return RechazoDelActo(QStringLiteral("Otra caja cambió los pagos o el consumo del documento ") + e.nombre() +
                          QStringLiteral("; vuelva a elegirlo."));
  }
  l.papel.documento = e;
  if (auto error = TomarNumeroParalelo(p, central, TipoDocumento::LIQPAD, l.numero)) return error;
  l.papel.numero = l.numero.documento;
  acto.nombre = QStringLiteral("liquidación ") + l.papel.numero.serie + u'-' + NumeroEscrito(l.papel.numero.numero);
  sentenciasLocales(p, l, acto);
  acto.enServidor = SentenciasLiquidacion(e);
  return {};
}

void entregarVuelto(Puesto& p, const Liquidacion& l) {
  const EfectivoDocumento& e = l.papel.efectivo;
  CommitDocumento cajon;
  if (e.soles > 0 || e.dolares > 0 || e.vueltoSoles > 0) (void)AbrirCajon(p, cajon);
  ImprimirLiquidacion(p, l.papel);
}

}  // namespace

std::optional<QString> GrabarLiquidacion(Puesto& p, CajaFacturacionPagos& todo) {
  TabLiquidacion& v = todo.liquidacion;
  TotalesLQ(p, v);
  if (auto campo = validar(p, v)) return campo;
  if (LeerImporte(v.txtSolesLQ) < 0 &&
      !p.mensajes.preguntar(QStringLiteral("Hay un saldo a favor del cliente...¿Desea liquidar de todas maneras?"),
                            QStringLiteral("Confirmar"))) {
    return QString();
  }
  Liquidacion l;
  if (!tomar(p, v, l) || !AbrirCentralDelActo(p)) return QString();
  const FinCredito fin =
      HacerActo(p, QStringLiteral("La liquidación"), [&](ActoDoble& acto) { return preparar(p, l, acto); });
  if (fin == FinCredito::Nada) return QString();
  AvisarCorreccion(p, l.numero);
  if (fin == FinCredito::Hecho) entregarVuelto(p, l);
  LimpiarLiquidacion(v);
  return {};
}
