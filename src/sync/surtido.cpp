#include "sync/surtido.h"

#include <QHash>

#include "foundation/puesto.h"
#include "platform/text/numero.h"

namespace {

struct Local {
  double precio = 0;
  bool activo = false;
  bool alla = false;  // under its code of six digits
};

// The number of a code, -1 for one that is none; `suyo` tells whether it is written as the desk looks it up.
qint64 numeroDe(const QString& codigo, bool& suyo) {
  qint64 n = 0;
  bool cifras = !codigo.isEmpty() && codigo.size() < 16;
  for (const QChar c : codigo) {
    cifras = cifras && c >= u'0' && c <= u'9';
    n = n * 10 + (c.unicode() - u'0');
  }
  suyo = cifras && (codigo.size() == 6 || (codigo.size() > 6 && codigo[0] != u'0'));
  if (cifras) return n;
  return EsNumerico(codigo) ? AEntero(Val(codigo)) : -1;
}

constexpr double kSinPrecio = -1;

}  // namespace

bool CompararSurtido(Puesto& p, Surtido& c) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u"SELECT cProdCode, nProdPrecUnit, nActivo FROM Producto"_sql, rs)) {
    return false;
  }
  QHash<qint64, Local> locales;
  locales.reserve(rs.RecordCount());
  for (const auto& f : rs) locales.insert(AEntero(Numero(f[0])), {Numero(f[1]), Numero(f[2]) == 1});
  // Null: out of sale.
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnCentral,
          u"SELECT A.cCodartic, CASE WHEN A.bFlagVenta = 1 AND NOT A.bFlagDesc = 1 THEN ISNULL((SELECT TOP 1 "
          "B.nPrecioVtaNew FROM ArticuloPrecioVenta B WHERE B.cCodArtic = A.cCodartic ORDER BY B.nNumItem DESC), -1) "
          "END AS nPrecio FROM Articulo A"_sql,
          rs)) {
    return false;
  }
  for (const auto& f : rs) {
    const QString codigo = f[0].toString();
    bool suyo = false;
    const qint64 n = numeroDe(codigo, suyo);
    const auto aqui = locales.find(n);
    if (n < 0 || aqui == locales.end()) continue;
    if (suyo) aqui->alla = true;
    if (f[1].isNull()) {
      if (aqui->activo) c.fueraDeVenta.push_back(n);
      continue;
    }
    if (!aqui->activo) c.vueltos.push_back(n);
    const double precio = f[1].toDouble();
    if (precio != kSinPrecio && precio != aqui->precio && Redondear(precio - aqui->precio, 4) != 0) {
      c.precios.push_back({codigo, n, precio});
    }
  }
  for (auto i = locales.cbegin(); i != locales.cend(); ++i) {
    if (i->activo && !i->alla) c.idos.push_back(i.key());
  }
  return true;
}
