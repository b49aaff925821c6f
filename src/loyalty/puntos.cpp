#include "loyalty/puntos.h"

#include <limits>

#include "foundation/puesto.h"
#include "loyalty/acumulacion.h"
#include "loyalty/cliente_bd.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

const QString kSinSaldo = QStringLiteral("-1");
constexpr int kPuntosAcumulados = 2;  // cTranCode

int enteroDe(double valor) {
  constexpr double tope = std::numeric_limits<int>::max();
  return static_cast<int>(qBound(-tope, valor, tope));
}

// The customer's code of a card on that site; "" without such a card.
bool leerTitular(Puesto& p, Conexion& cnn, const QString& tarjeta, int idLocal, QString& cliente) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(cnn,
                                    FormatearSQL(QStringLiteral(" SELECT cClieCode AS Codigo    FROM Tarjeta "
                                                                "  WHERE nTarjNumb = '$'     AND IdLocal = $ "),
                                                 {ReemplazarComilla(tarjeta), idLocal}),
                                    rs)) {
    return false;
  }
  cliente = LimpiarNulo(rs[u"Codigo"]);
  return true;
}

// Whose points these are, by the client database. False when they are nobody's, or when it can't be read; `leido` tells.
bool buscarEnCliente(Puesto& p, Acumulacion& a, bool& leido) {
  int tipo = kSinCliente;
  leido = leerTitular(p, p.poCnnCliente, a.tarjeta, a.idLocal, a.cliente);
  if (!leido || a.cliente.isEmpty()) return false;
  leido = LeerTipoCliente(p, p.poCnnCliente, a.cliente, a.idLocal, tipo);
  if (!leido || tipo != kClienteConPuntos) return false;
  return leido = SiguienteAcumulacion(p, p.poCnnCliente, a.cliente, a.idLocal, a.codigo);
}

// The same by the store's copies. The pull brings them without a site and without the kind of customer: what isn't
// known there is taken for a yes and settled when the row is sent.
bool buscarEnAlmacen(Puesto& p, Acumulacion& a) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          FormatearSQL(QStringLiteral("SELECT cClieCode, IdLocal FROM Tarjeta WHERE nTarjNumb = '$' ORDER BY IdLocal"),
                       {ReemplazarComilla(a.tarjeta)}),
          rs)) {
    return false;
  }
  // The copy of the sale's site, else one without a site, else, for a sale without a site, the only one there is.
  a.cliente.clear();
  int local = a.idLocal;
  for (const auto& fila : rs) {
    const int suyo = static_cast<int>(AEntero(Numero(fila[u"IdLocal"])));
    if (suyo != a.idLocal && suyo != 0 && (a.idLocal != 0 || rs.RecordCount() > 1)) continue;
    a.cliente = LimpiarNulo(fila[u"cClieCode"]);
    local = suyo;
  }
  if (a.idLocal == 0) a.idLocal = local;
  int tipo = kSinCliente;
  return !a.cliente.isEmpty() && LeerTipoCliente(p, p.poCnnLocal, a.cliente, local, tipo) &&
         (tipo < 0 || tipo == kClienteConPuntos);
}

void acumularEnCliente(Puesto& p, Acumulacion& a) {
  const QString momento = QStringLiteral("convert(datetime,'") + FormatearFecha(p.reloj.now(), u"yyyy-mm-dd hh:nn:ss") +
                          QStringLiteral("',120)");
  if (!SiguienteAcumulacion(p, p.poCnnCliente, a.cliente, a.idLocal, a.codigo) ||
      !InsertarAcumulacion(p, p.poCnnCliente, a, momento, false)) {
    return;
  }
  p.poDBAdmin.EjecutarSentencia(p.poCnnCliente,
                                FormatearSQL(QStringLiteral("UPDATE Cliente SET nPuntCant = ISNULL(nPuntCant,0) + $, "
                                                            "dUltTDate = $, cTranCode = $,bFlagSincro= $ "
                                                            "WHERE cClieCode = $ AND IdLocal= $ "),
                                             {a.puntos, momento, kPuntosAcumulados, 0, a.cliente, a.idLocal}),
                                true);
}

// The customer's copy is that of the site or, as the pull brings it, one without a site.
void acumularEnCola(Puesto& p, Acumulacion& a) {
  // Behind the rows that wait already: the mark of a sent row must never hit another one.
  qint64 enCola = 0;
  if (!SiguienteAcumulacion(p, p.poCnnLocal, a.cliente, a.idLocal, enCola)) return;
  a.codigo = qMax(a.codigo, enCola);
  const QString momento = u'\'' + FormatearFecha(p.reloj.now(), u"dd/mm/yyyy hh:nn:ss") + u'\'';
  if (!InsertarAcumulacion(p, p.poCnnLocal, a, momento, true)) return;
  p.poDBAdmin.EjecutarSentencia(
      p.poCnnLocal,
      FormatearSQL(QStringLiteral("UPDATE Cliente SET nPuntCant = nPuntCant + $, "
                                  "       dUltTDate = $, cTranCode = $, cSincroFlag = 0 "
                                  " WHERE cClieCode = $ "
                                  "   AND IdLocal = (SELECT MAX(IdLocal) FROM Cliente "
                                  "                  WHERE cClieCode = $ AND IdLocal IN ($, 0))"),
                   {a.puntos, momento, kPuntosAcumulados, a.cliente, a.cliente, a.idLocal}),
      true);
}

ClavePuntos clave(const CommitDocumento& c) { return {Codigo(c.o.documento), c.documento.serie, c.documento.numero}; }

// The statements of a take-back; `cliente` is filled as soon as it is known.
bool extornar(Puesto& p, const QString& tarjeta, double total, int idLocal, const ClavePuntos& d, QString& cliente) {
  if (!TomarReglaPunto(p) || !p.ses.pbClienteConectado) return false;
  if (!leerTitular(p, p.poCnnCliente, tarjeta, idLocal, cliente)) return false;
  if (cliente.isEmpty()) cliente = QStringLiteral("0");
  const QString borra = FormatearSQL(
      QStringLiteral("Delete From Acumulacion_Punto where cDocTipo='$' and cDocSerie='$' and cDocCodigo=$"),
      {ReemplazarComilla(d.tipo), ReemplazarComilla(d.serie), d.numero});
  // Only the kind that earns: another customer's balance never held these points.
  const QString resta =
      FormatearSQL(QStringLiteral(" Update Cliente set  nPuntCant= (nPuntCant - $)  Where cClieCode=$ AND IdLocal = $"
                                  " AND iTipo=$"),
                   {CalcularPuntos(p, total), cliente, idLocal, kClienteConPuntos});
  return p.poDBAdmin.EjecutarSentencia(p.poCnnCliente, borra, true) &&
         p.poDBAdmin.EjecutarSentencia(p.poCnnCliente, resta, true);
}

}  // namespace

int CalcularPuntos(const Puesto& p, double importe) {
  const double cada = p.ses.pnPuntImpo == 0 ? 1 : p.ses.pnPuntImpo;
  return enteroDe(Int(importe / cada) * p.ses.pnPuntCant);
}

bool GanaPuntos(const ClavePuntos& documento, const QString& tarjeta, double importe) {
  return importe > 0 && !Recortar(tarjeta).isEmpty() && documento.tipo != Codigo(TipoDocumento::LIQPAD);
}

QString SaldoPuntos(Puesto& p, const QString& tarjeta, int idLocal) {
  if (!p.ses.pbClienteConectado && !ConectarCliente(p, true)) return kSinSaldo;
  QString cliente;
  if (!leerTitular(p, p.poCnnCliente, tarjeta, idLocal, cliente)) return QStringLiteral("0");
  if (cliente.isEmpty()) return kSinSaldo;
  if (!p.ses.pbClienteCaido) ConectarCliente(p, true);
  if (!p.ses.pbClienteConectado) return kSinSaldo;
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnCliente,
                                    FormatearSQL(QStringLiteral(" SELECT nPuntcant FROM CLIENTE "
                                                                "  WHERE iTipo=1 AND cClieCode = $ "
                                                                "    AND IdLocal = $"),
                                                 {cliente, idLocal}),
                                    rs)) {
    return QStringLiteral("0");
  }
  return rs.Eof() ? kSinSaldo : TextoDe(Numero(rs[u"nPuntcant"]));
}

std::optional<PuntosTicket> PuntosDelTicket(Puesto& p, const ClavePuntos& documento, const QString& tarjeta,
                                            int idLocal, double importe) {
  if (!GanaPuntos(documento, tarjeta, importe)) return {};
  const QString saldo = SaldoPuntos(p, tarjeta, idLocal);
  const int ganados = CalcularPuntos(p, importe);
  const double suma = ganados + Val(saldo);
  if (suma < 0 || ganados <= 0 || saldo == kSinSaldo) return {};
  return PuntosTicket{ganados, suma};
}

void AcumularPuntos(Puesto& p, const QString& tarjeta, const ClavePuntos& documento, double importe, int idLocal) {
  if (!GanaPuntos(documento, tarjeta, importe)) return;
  if (!p.ses.pbClienteConectado) ConectarCliente(p, true);
  Acumulacion a{{}, idLocal, 0, Recortar(tarjeta), importe, CalcularPuntos(p, importe), p.ses.psUsuario, documento};
  bool leido = false;
  bool gana = p.ses.pbClienteConectado && buscarEnCliente(p, a, leido);
  // A connection that died since the sale began is found out by its first read: away as well.
  if (!leido && (!p.ses.pbClienteConectado || !ConectarCliente(p, true))) gana = buscarEnAlmacen(p, a);
  if (gana) {
    if (!p.ses.pbClienteCaido) ConectarCliente(p, true);
    if (p.ses.pbClienteConectado) acumularEnCliente(p, a);
    else acumularEnCola(p, a);
  }
  DesconectarCliente(p);
}

bool LeerPuntos(Puesto& p, CommitDocumento& c) {
  c.puntos = PuntosDelTicket(p, clave(c), c.tarjeta, c.idLocal, c.total);
  return true;
}

bool Acumular(Puesto& p, CommitDocumento& c) {
  AcumularPuntos(p, c.tarjeta, clave(c), c.total, c.idLocal);
  return true;
}

ClienteTarjeta ClienteDeTarjeta(Puesto& p, const QString& tarjeta, int idLocal) {
  ClienteTarjeta c;
  if (!p.ses.pbClienteConectado && !ConectarCliente(p, true)) return c;
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnCliente,
          FormatearSQL(QStringLiteral(" SELECT Cliente.cClieCode, Cliente.sClieApel, Cliente.sClieName, Cliente.iTipo "
                                      " FROM Cliente INNER JOIN Tarjeta ON Cliente.cClieCode = Tarjeta.cClieCode"
                                      " AND Cliente.IdLocal = Tarjeta.IdLocal"
                                      " WHERE Tarjeta.nTarjNumb = '$' AND Cliente.IdLocal='$'"),
                       {ReemplazarComilla(tarjeta), idLocal}),
          rs)) {
    return c;
  }
  for (const auto& fila : rs) {
    c.nombre = Izquierda(LimpiarNulo(fila[u"sClieApel"]), 50) + u' ' + LimpiarNulo(fila[u"sClieName"]);
    c.codigo = LimpiarNulo(fila[u"cClieCode"]);
    c.tipo = static_cast<int>(AEntero(Numero(fila[u"iTipo"])));
  }
  return c;
}

void Extorna_puntos(Puesto& p, const QString& tarjeta, double Total, int nIdLocal, const ClavePuntos& documento) {
  if (!p.ses.pbClienteCaido) ConectarCliente(p, true);
  QString cliente = QStringLiteral("0");
  if (!extornar(p, Recortar(tarjeta), Total, nIdLocal, documento, cliente)) {
    p.mensajes.mostrar(QStringLiteral("No se logró Extornar los puntos acumulados del cliente Cod:") + cliente);
  }
  DesconectarCliente(p);
}
