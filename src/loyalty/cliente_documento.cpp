#include "loyalty/cliente_documento.h"

#include <algorithm>

#include "documento/tarjeta.h"
#include "foundation/puesto.h"
#include "loyalty/acumulacion.h"
#include "loyalty/cliente_bd.h"
#include "platform/text/fecha.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

// 0 for none.
void elegirLocal(ClienteDocumento& c, int id) {
  c.nIdLocal = id;
  c.txtLocal = id > 0 ? QString::number(id) : QString();
}

ResultadoTarjeta noExiste(Puesto& p, ClienteDocumento& c) {
  c.txtTarjeta.clear();
  OlvidarCliente(c);
  p.mensajes.mostrar(QStringLiteral("El Código de cliente no existe o la tarjeta se encuentra inactiva"));
  return ResultadoTarjeta::NoExiste;
}

}  // namespace

// The sites don't change during a session, so one reading serves the screen's life.
void CargarLocales(Puesto& p, ClienteDocumento& c) {
  if (!c.locales.empty() || p.ses.pbClienteCaido || !ConectarCliente(p, true)) return;
  Recordset rs;
  if (p.poDBAdmin.EjecutarConsulta(p.poCnnCliente, u"SELECT idlocal, dsclocal FROM local"_sql, rs)) {
    for (const auto& f : rs) {
      c.locales.push_back({static_cast<int>(AEntero(Numero(f[u"idlocal"]))), LimpiarNulo(f[u"dsclocal"])});
    }
  }
  DesconectarCliente(p);
}

ResultadoTarjeta BuscaTarjeta(Puesto& p, ClienteDocumento& c, BuscadorClientes& pantallas) {
  if (Recortar(c.txtTarjeta).isEmpty()) {
    c.txtTarjeta.clear();
    OlvidarCliente(c);
    return ResultadoTarjeta::SinTarjeta;
  }
  AjustarCliente(c);
  const QString tarjeta = NumeroTarjeta(c.txtTarjeta);
  if (tarjeta.isEmpty()) return noExiste(p, c);
  c.txtTarjeta = tarjeta;
  if (!ConectarCliente(p, true)) return ResultadoTarjeta::SinServidor;

  Sql sql = FormatearSQL(
      u" SELECT a.cClieCode, a.IdLocal, a.sClieApel, a.sClieName"
      " FROM Cliente a INNER JOIN Tarjeta b"
      " ON a.cClieCode = b.cClieCode AND a.IdLocal = b.IdLocal"
      " WHERE b.cTarjActi = 1 AND b.dcadudate >= CONVERT(DATETIME,'$',120)"
      "    AND nTarjNumb = '$'"_sql,
      {Texto(FormatearFecha(p.reloj.now(), u"yyyy-mm-dd") + QStringLiteral(" 00:00:00")), Texto(c.txtTarjeta)});
  if (c.nIdLocal > 0) sql += FormatearSQL(u"    AND a.IdLocal = $ "_sql, {c.nIdLocal});
  Recordset rs;
  const bool leido = p.poDBAdmin.EjecutarConsulta(p.poCnnCliente, sql, rs);
  DesconectarCliente(p);
  if (!leido) return ResultadoTarjeta::SinServidor;

  if (rs.Eof()) return noExiste(p, c);
  c.tarjetaHallada = c.txtTarjeta;
  if (rs.RecordCount() > 1) {
    c.txtNombres.clear();
    c.localVisible = true;
    const auto elegida = pantallas.buscarCliente(c.txtTarjeta);
    const bool conLocal = elegida && elegida->idLocal > 0;
    return conLocal ? TomarCliente(p, c, pantallas, *elegida) : ResultadoTarjeta::VariosLocales;
  }
  c.txtNombres = LimpiarNulo(rs[u"sClieApel"]) + u' ' + LimpiarNulo(rs[u"sClieName"]);
  elegirLocal(c, static_cast<int>(AEntero(Numero(rs[u"IdLocal"]))));
  return ResultadoTarjeta::Hallada;
}

bool HayTarjeta(Puesto& p, const QString& numero) {
  std::vector<TitularTarjeta> titulares;
  if (LeerTitulares(p, p.poCnnLocal, numero, 0, titulares) && !titulares.empty()) return true;
  if (!ConectarCliente(p, false)) return false;
  const bool leido = LeerTitulares(p, p.poCnnCliente, numero, 0, titulares);
  DesconectarCliente(p);
  return leido && !titulares.empty();
}

ResultadoTarjeta TomarCliente(Puesto& p, ClienteDocumento& c, BuscadorClientes& pantallas,
                              const TarjetaElegida& elegida) {
  OlvidarCliente(c);
  c.txtTarjeta = elegida.tarjeta;
  elegirLocal(c, elegida.idLocal);
  return BuscaTarjeta(p, c, pantallas);
}

QString CampoPorMirar(Puesto& p, ClienteDocumento& c, BuscadorClientes& pantallas) {
  AjustarCliente(c);
  const bool hallada = !c.tarjetaHallada.isEmpty() && NumeroTarjeta(c.txtTarjeta) == c.tarjetaHallada;
  if (hallada || Recortar(c.txtTarjeta).isEmpty()) return {};
  switch (BuscaTarjeta(p, c, pantallas)) {
    case ResultadoTarjeta::NoExiste: return QStringLiteral("txtTarjeta");
    case ResultadoTarjeta::VariosLocales: return c.locales.empty() ? QString() : QStringLiteral("dcbLocal");
    default: return {};
  }
}

void AjustarCliente(ClienteDocumento& c) {
  const int local = static_cast<int>(AEntero(Val(c.txtLocal)));
  const bool hallado = !c.tarjetaHallada.isEmpty();
  const bool otraTarjeta = NumeroTarjeta(c.txtTarjeta) != c.tarjetaHallada;
  if (hallado && (otraTarjeta || local != c.nIdLocal)) OlvidarCliente(c);
  if (!hallado || !otraTarjeta) elegirLocal(c, local);
}

void OlvidarCliente(ClienteDocumento& c) {
  c.txtNombres.clear();
  c.tarjetaHallada.clear();
  elegirLocal(c, 0);
}

bool RucAceptado(Puesto& p, const QString& ruc) {
  const QString r = Recortar(ruc);
  const bool digitos = std::all_of(r.begin(), r.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
  if (r.isEmpty() || (r.size() == 11 && digitos)) return true;
  p.mensajes.mostrar(QStringLiteral("El RUC debe poseer 11 dígitos"));
  return false;
}
