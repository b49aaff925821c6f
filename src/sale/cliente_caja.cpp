#include "sale/cliente_caja.h"

#include <algorithm>

#include "foundation/puesto.h"
#include "loyalty/cliente_bd.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/pantallas_venta.h"

namespace {

// A longer number stays what it is, nobody's: its tail could be another customer's card.
QString ochoDigitos(QString tarjeta) {
  while (tarjeta.size() > 8 && tarjeta.startsWith(u'0')) tarjeta.remove(0, 1);
  return Rellenar(tarjeta, 8, u'0');
}

}  // namespace

// The sites don't change during a session, so one reading serves the screen's life.
void CargarLocales(Puesto& p, ClienteCaja& c) {
  if (!c.locales.empty() || p.ses.pbClienteCaido || !ConectarCliente(p, true)) return;
  Recordset rs;
  if (p.poDBAdmin.EjecutarConsulta(p.poCnnCliente, QStringLiteral("SELECT idlocal, dsclocal FROM local"), rs)) {
    for (const auto& f : rs) {
      c.locales.push_back({static_cast<int>(AEntero(Numero(f[u"idlocal"]))), LimpiarNulo(f[u"dsclocal"])});
    }
  }
  DesconectarCliente(p);
}

ResultadoTarjeta BuscaTarjeta(Puesto& p, ClienteCaja& c, PantallasVenta& pantallas) {
  const QString tecleada = Recortar(c.txtTarjeta);
  if (tecleada.isEmpty()) {
    c.txtTarjeta.clear();
    OlvidarCliente(c);
    return ResultadoTarjeta::SinTarjeta;
  }
  c.txtTarjeta = ochoDigitos(tecleada);
  AjustarCliente(c);
  if (!ConectarCliente(p, true)) return ResultadoTarjeta::SinServidor;

  QString sql = FormatearSQL(
      QStringLiteral(" SELECT a.cClieCode, a.IdLocal, a.sClieApel, a.sClieName"
                     " FROM Cliente a INNER JOIN Tarjeta b"
                     " ON a.cClieCode = b.cClieCode AND a.IdLocal = b.IdLocal"
                     " WHERE b.cTarjActi = 1 AND b.dcadudate >= CONVERT(DATETIME,'$',120)"
                     "    AND nTarjNumb = '$'"),
      {FormatearFecha(p.reloj.now(), u"yyyy-mm-dd") + QStringLiteral(" 00:00:00"), ReemplazarComilla(c.txtTarjeta)});
  if (c.nIdLocal > 0) sql += FormatearSQL(QStringLiteral("    AND a.IdLocal = $ "), {c.nIdLocal});
  Recordset rs;
  const bool leido = p.poDBAdmin.EjecutarConsulta(p.poCnnCliente, sql, rs);
  DesconectarCliente(p);
  if (!leido) return ResultadoTarjeta::SinServidor;

  if (rs.Eof()) {
    c.txtTarjeta.clear();
    OlvidarCliente(c);
    p.mensajes.mostrar(QStringLiteral("El Código de cliente no existe o la tarjeta se encuentra inactiva"));
    return ResultadoTarjeta::NoExiste;
  }
  c.tarjetaHallada = c.txtTarjeta;
  if (rs.RecordCount() > 1) {
    c.txtNombres.clear();
    c.localVisible = true;
    const auto elegida = pantallas.buscarCliente(c.txtTarjeta);
    const bool conLocal = elegida && elegida->idLocal > 0;
    return conLocal ? TomarCliente(p, c, pantallas, *elegida) : ResultadoTarjeta::VariosLocales;
  }
  c.txtNombres = LimpiarNulo(rs[u"sClieApel"]) + u' ' + LimpiarNulo(rs[u"sClieName"]);
  ElegirLocal(c, static_cast<int>(AEntero(Numero(rs[u"IdLocal"]))));
  return ResultadoTarjeta::Hallada;
}

ResultadoTarjeta TomarCliente(Puesto& p, ClienteCaja& c, PantallasVenta& pantallas, const TarjetaElegida& elegida) {
  c.tarjetaHallada.clear();
  c.txtTarjeta = elegida.tarjeta;
  ElegirLocal(c, elegida.idLocal);
  return BuscaTarjeta(p, c, pantallas);
}

QString CampoPorMirar(Puesto& p, ClienteCaja& c, PantallasVenta& pantallas) {
  AjustarCliente(c);
  const QString tarjeta = Recortar(c.txtTarjeta);
  if (tarjeta.isEmpty() || ochoDigitos(tarjeta) == c.tarjetaHallada) return {};
  switch (BuscaTarjeta(p, c, pantallas)) {
    case ResultadoTarjeta::NoExiste: return QStringLiteral("txtTarjeta");
    case ResultadoTarjeta::VariosLocales: return c.locales.empty() ? QString() : QStringLiteral("dcbLocal");
    default: return {};
  }
}

void AjustarCliente(ClienteCaja& c) {
  const QString tarjeta = Recortar(c.txtTarjeta);
  const bool otra = tarjeta.isEmpty() || ochoDigitos(tarjeta) != c.tarjetaHallada;
  if (otra && !c.tarjetaHallada.isEmpty()) {
    OlvidarCliente(c);
  } else {
    ElegirLocal(c, static_cast<int>(AEntero(Val(c.txtLocal))));
  }
}

void ElegirLocal(ClienteCaja& c, int id) {
  c.nIdLocal = id;
  c.txtLocal = id > 0 ? QString::number(id) : QString();
}

void OlvidarCliente(ClienteCaja& c) {
  c.txtNombres.clear();
  c.tarjetaHallada.clear();
  ElegirLocal(c, 0);
}

bool RucAceptado(Puesto& p, const QString& ruc) {
  const QString r = Recortar(ruc);
  const bool digitos = std::all_of(r.begin(), r.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
  if (r.isEmpty() || (r.size() == 11 && digitos)) return true;
  p.mensajes.mostrar(QStringLiteral("El RUC debe poseer 11 dígitos"));
  return false;
}
