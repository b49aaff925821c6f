#include "loyalty/puntos.h"

#include <limits>

#include "documento/tarjeta.h"
#include "foundation/puesto.h"
#include "foundation/transaccion.h"
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
                                    FormatearSQL(u" SELECT cClieCode AS Codigo    FROM Tarjeta "
                                                 "  WHERE nTarjNumb = '$'     AND IdLocal = $ "_sql,
                                                 {Texto(tarjeta), idLocal}),
                                    rs)) {
    return false;
  }
  cliente = LimpiarNulo(rs[u"Codigo"]);
  return true;
}

// What becomes of points: nobody's, to be recorded, to wait, or not known since the database couldn't be read.
enum class Destino { Nadie, Cliente, Cola, NoLeido };

// Whose points these are, by the client database. Without a site they are those of the card's only one, and wait when
// several have issued it.
Destino buscarEnCliente(Puesto& p, Acumulacion& a) {
  if (a.idLocal == 0) {
    std::vector<TitularTarjeta> titulares;
    if (!LeerTitulares(p, p.poCnnCliente, a.tarjeta, 0, titulares)) return Destino::NoLeido;
    if (titulares.empty()) return Destino::Nadie;
    a.cliente = titulares.front().cliente;
    if (titulares.size() > 1) return Destino::Cola;
    a.idLocal = titulares.front().idLocal;
  } else if (!leerTitular(p, p.poCnnCliente, a.tarjeta, a.idLocal, a.cliente)) {
    return Destino::NoLeido;
  }
  if (a.cliente.isEmpty()) return Destino::Nadie;
  int tipo = kSinCliente;
  if (!LeerTipoCliente(p, p.poCnnCliente, a.cliente, a.idLocal, tipo)) return Destino::NoLeido;
  if (tipo != kClienteConPuntos) return Destino::Nadie;
  return SiguienteAcumulacion(p, p.poCnnCliente, a.cliente, a.idLocal, a.codigo) ? Destino::Cliente : Destino::NoLeido;
}

// The same by the store's copies. The pull brings them without a site and without the kind of customer: what isn't
// known there is taken for a yes and settled when the row is sent.
bool buscarEnAlmacen(Puesto& p, Acumulacion& a) {
  std::vector<TitularTarjeta> copias;
  if (!LeerTitulares(p, p.poCnnLocal, a.tarjeta, 0, copias)) return false;
  if (a.idLocal == 0 && copias.size() > 1) {  // they wait for the site
    a.cliente = copias.front().cliente;
    return true;
  }
  // The copy of the sale's site, else one without a site, else, for a sale without a site, the only one there is.
  a.cliente.clear();
  int local = a.idLocal;
  for (const TitularTarjeta& copia : copias) {
    const int suyo = copia.idLocal;
    if (suyo != a.idLocal && suyo != 0 && a.idLocal != 0) continue;
    a.cliente = copia.cliente;
    local = suyo;
  }
  if (a.idLocal == 0) a.idLocal = local;
  int tipo = kSinCliente;
  return !a.cliente.isEmpty() && LeerTipoCliente(p, p.poCnnLocal, a.cliente, local, tipo) &&
         (tipo < 0 || tipo == kClienteConPuntos);
}

std::vector<Sql> filasEnCliente(const Acumulacion& a) {
  const Sql momento =
      FormatearSQL(u"convert(datetime,'$',120)"_sql, {Texto(FormatearFecha(a.momento, u"yyyy-mm-dd hh:nn:ss"))});
  return {FilaAcumulacion(a, momento, false),
          FormatearSQL(u"UPDATE Cliente SET nPuntCant = ISNULL(nPuntCant,0) + $, "
                       "dUltTDate = $, cTranCode = $,bFlagSincro= $ "
                       "WHERE cClieCode = $ AND IdLocal= $ "_sql,
                       {a.puntos, momento, kPuntosAcumulados, 0, Cifras(a.cliente), a.idLocal})};
}

// The store's copy of a customer: that of the site or, as the pull brings it, one without a site.
constexpr LiteralSql kCopia =
    u" WHERE cClieCode = $ "
    "   AND IdLocal = (SELECT MAX(IdLocal) FROM Cliente WHERE cClieCode = $ AND IdLocal IN ($, 0))"_sql;

void acumularEnCola(Puesto& p, Acumulacion& a) {
  // Behind the rows that wait already: the mark of a sent row must never hit another one.
  qint64 enCola = 0;
  if (!SiguienteAcumulacion(p, p.poCnnLocal, a.cliente, a.idLocal, enCola)) return;
  a.codigo = qMax(a.codigo, enCola);
  const Sql momento = FormatearSQL(u"'$'"_sql, {a.momento});
  if (!p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, FilaAcumulacion(a, momento, true), true)) return;
  // The points wait by now; the copy is for the eyes until the next pull.
  (void)p.poDBAdmin.EjecutarSentencia(
      p.poCnnLocal,
      FormatearSQL(u"UPDATE Cliente SET nPuntCant = nPuntCant + $, "
                   "       dUltTDate = $, cTranCode = $, cSincroFlag = 0 "_sql +
                       kCopia,
                   {a.puntos, momento, kPuntosAcumulados, Cifras(a.cliente), Cifras(a.cliente), a.idLocal}),
      true);
}

ClavePuntos clave(const CommitDocumento& c) { return {Codigo(c.o.documento), c.documento.serie, c.documento.numero}; }

// False when they don't, or it can't be told.
bool estanEnCliente(Puesto& p, const ClavePuntos& d) {
  Recordset rs;
  return p.poDBAdmin.EjecutarConsulta(p.poCnnCliente,
                                      u"Select count(*) as TOTAL From Acumulacion_Punto"_sql + DelDocumento(d), rs) &&
         Numero(rs[u"TOTAL"]) != 0;
}

// The statements of a take-back; `cliente` is filled as soon as it is known.
bool extornar(Puesto& p, const QString& tarjeta, double total, int idLocal, const ClavePuntos& d, QString& cliente) {
  if (!TomarReglaPunto(p) || !p.ses.pbClienteConectado) return false;
  if (!leerTitular(p, p.poCnnCliente, tarjeta, idLocal, cliente)) return false;
  if (cliente.isEmpty()) cliente = QStringLiteral("0");
  const Sql borra = u"Delete From Acumulacion_Punto"_sql + DelDocumento(d);
  // Only the kind that earns: another customer's balance never held these points.
  const Sql resta = FormatearSQL(u" Update Cliente set  nPuntCant= (nPuntCant - $)  Where cClieCode=$ AND IdLocal = $"
                                 " AND iTipo=$"_sql,
                                 {CalcularPuntos(p, total), Cifras(cliente), idLocal, kClienteConPuntos});
  // A sale that died before its points have come gives none back.
  const auto quitar = [&](Sql& laQueFallo) -> std::optional<ErrorBD> {
    qint64 borradas = 0;
    if (auto e = p.poCnnCliente.ejecutar(borra, &borradas)) {
      laQueFallo = borra;
      return e;
    }
    return borradas == 0 ? std::nullopt : EjecutarTodas(p.poCnnCliente, {resta}, &laQueFallo);
  };
  return ActuarEnCliente(p, quitar) == ResultadoCliente::Hecho;
}

}  // namespace

int CalcularPuntos(const Puesto& p, double importe) {
  const double cada = p.ses.pnPuntImpo == 0 ? 1 : p.ses.pnPuntImpo;
  return enteroDe(Int(importe / cada) * p.ses.pnPuntCant);
}

bool GanaPuntos(const ClavePuntos& documento, const QString& tarjeta, double importe) {
  return importe > 0 && !NumeroTarjeta(tarjeta).isEmpty() && documento.tipo != Codigo(TipoDocumento::LIQPAD);
}

QString SaldoPuntos(Puesto& p, const QString& tarjeta, int idLocal) {
  if (!p.ses.pbClienteConectado && !ConectarCliente(p, true)) return kSinSaldo;
  QString cliente;
  if (!leerTitular(p, p.poCnnCliente, tarjeta, idLocal, cliente)) return QStringLiteral("0");
  if (cliente.isEmpty()) return kSinSaldo;
  if (!p.ses.pbClienteCaido) (void)ConectarCliente(p, true);
  if (!p.ses.pbClienteConectado) return kSinSaldo;
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnCliente,
                                    FormatearSQL(u" SELECT nPuntcant FROM CLIENTE "
                                                 "  WHERE iTipo=1 AND cClieCode = $ "
                                                 "    AND IdLocal = $"_sql,
                                                 {Cifras(cliente), idLocal}),
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

void AcumularPuntos(Puesto& p, const QString& tarjeta, const ClavePuntos& documento, double importe, int idLocal,
                    const QDateTime& momento) {
  if (!GanaPuntos(documento, tarjeta, importe)) return;
  if (!p.ses.pbClienteConectado) (void)ConectarCliente(p, true);
  Acumulacion a;
  a.idLocal = idLocal;
  a.tarjeta = Recortar(tarjeta);
  a.importe = importe;
  a.puntos = CalcularPuntos(p, importe);
  a.usuario = p.ses.psUsuario;
  a.documento = documento;
  a.momento = momento;
  Destino destino = p.ses.pbClienteConectado ? buscarEnCliente(p, a) : Destino::NoLeido;
  // A connection that died since the sale began is found out by its first read: away as well.
  if (destino == Destino::NoLeido && (!p.ses.pbClienteConectado || !ConectarCliente(p, true))) {
    destino = buscarEnAlmacen(p, a) ? Destino::Cola : Destino::Nadie;
  }
  if (destino == Destino::Cliente) {
    if (!p.ses.pbClienteCaido) (void)ConectarCliente(p, true);
    if (p.ses.pbClienteConectado && !SiguienteAcumulacion(p, p.poCnnCliente, a.cliente, a.idLocal, a.codigo)) {
      destino = Destino::NoLeido;
    } else if (!p.ses.pbClienteConectado || EjecutarEnCliente(p, filasEnCliente(a)) == ResultadoCliente::NoResponde) {
      destino = Destino::Cola;
    }
  }
  if (destino == Destino::Cola) acumularEnCola(p, a);
  DesconectarCliente(p);
}

bool LeerPuntos(Puesto& p, CommitDocumento& c) {
  c.puntos = PuntosDelTicket(p, clave(c), c.tarjeta, c.idLocal, c.total);
  return true;
}

bool Acumular(Puesto& p, CommitDocumento& c) {
  AcumularPuntos(p, c.tarjeta, clave(c), c.total, c.idLocal, c.momento);
  return true;
}

ClienteTarjeta ClienteDeTarjeta(Puesto& p, const QString& tarjeta, int idLocal) {
  ClienteTarjeta c;
  if (!p.ses.pbClienteConectado && !ConectarCliente(p, true)) return c;
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnCliente,
          FormatearSQL(u" SELECT Cliente.cClieCode, Cliente.sClieApel, Cliente.sClieName, Cliente.iTipo "
                       " FROM Cliente INNER JOIN Tarjeta ON Cliente.cClieCode = Tarjeta.cClieCode"
                       " AND Cliente.IdLocal = Tarjeta.IdLocal"
                       " WHERE Tarjeta.nTarjNumb = '$' AND Cliente.IdLocal='$'"_sql,
                       {Texto(tarjeta), idLocal}),
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

bool LeerPuntosEnEspera(Puesto& p, const ClavePuntos& documento, std::vector<Sql>& quitarlos) {
  const Sql enEspera = u" FROM Acumulacion_Punto"_sql + DelDocumento(documento) + u" and cSincroFlag = 0"_sql;
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u"SELECT cClieCode, IdLocal, nPuntCant"_sql + enEspera, rs)) {
    return false;
  }
  for (const auto& f : rs) {
    const Cifras cliente(LimpiarNulo(f[u"cClieCode"]));
    quitarlos.push_back(FormatearSQL(u"UPDATE Cliente SET nPuntCant = nPuntCant - $"_sql + kCopia,
                                     {Numero(f[u"nPuntCant"]), cliente, cliente, Numero(f[u"IdLocal"])}));
  }
  if (!rs.Eof()) quitarlos.push_back(u"DELETE"_sql + enEspera);
  return true;
}

void Extorna_puntos(Puesto& p, const QString& tarjeta, double Total, int nIdLocal, const ClavePuntos& documento,
                    bool enEspera) {
  p.ses.tiempoAgotado.remove(p.ses.psConexionCliente);
  (void)ConectarCliente(p, true);
  QString cliente = QStringLiteral("0");
  const bool nunca = enEspera && !(p.ses.pbClienteConectado && estanEnCliente(p, documento));
  if (!nunca && !extornar(p, Recortar(tarjeta), Total, nIdLocal, documento, cliente)) {
    p.mensajes.mostrar(QStringLiteral("No se logró Extornar los puntos acumulados del cliente Cod:") + cliente);
  }
  DesconectarCliente(p);
}
