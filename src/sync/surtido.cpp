#include "sync/surtido.h"

#include <algorithm>
#include <limits>

#include "foundation/puesto.h"
#include "platform/text/numero.h"
#include "sync/pasadas_maestros.h"

namespace {

constexpr double kSinPrecio = -1;
constexpr double kPreciosPorArticulo = 2;  // up to here it is cheaper to read all of them

struct Local {
  qint64 clave;
  double precio;
  bool activo;
  bool alla = false;  // under its code of six digits
};

struct Articulo {
  QByteArrayView clave;  // its code as the servers compare it: blanks behind it do not count
  qint64 numero;
  bool enVenta;
  double item = -std::numeric_limits<double>::infinity();  // the highest number of its prices, and that price
  double precio = kSinPrecio;
};

// Rows by their keys. Who looks them up mostly comes in the same order, and finds each beside the last one.
template <class Fila>
class Indice {
 public:
  // Of equal keys the last one stays.
  explicit Indice(std::vector<Fila> filas) : filas_(std::move(filas)) {
    const auto menor = [](const Fila& a, const Fila& b) { return a.clave < b.clave; };
    const auto igual = [](const Fila& a, const Fila& b) { return a.clave == b.clave; };
    if (!std::is_sorted(filas_.begin(), filas_.end(), menor)) std::stable_sort(filas_.begin(), filas_.end(), menor);
    filas_.erase(filas_.begin(), std::unique(filas_.rbegin(), filas_.rend(), igual).base());
  }
  template <class Clave>
  Fila* buscar(const Clave& c) {
    for (const size_t i : {vez_, vez_ + 1}) {
      if (i < filas_.size() && filas_[i].clave == c) return &filas_[vez_ = i];
    }
    const auto i =
        std::lower_bound(filas_.begin(), filas_.end(), c, [](const Fila& f, const Clave& k) { return f.clave < k; });
    if (i == filas_.end() || i->clave != c) return nullptr;
    vez_ = static_cast<size_t>(i - filas_.begin());
    return &*i;
  }
  auto begin() const { return filas_.cbegin(); }
  auto end() const { return filas_.cend(); }

 private:
  std::vector<Fila> filas_;
  size_t vez_ = 0;
};

QByteArrayView codigoDe(const Recordset::Fila& f) {
  QByteArrayView t = f.celda(0).texto;
  while (t.endsWith(' ')) t.chop(1);
  return t;
}

// Written as the desk looks it up.
bool esSuyo(QByteArrayView codigo) {
  return DeCifras(codigo) >= 0 && (codigo.size() == 6 || (codigo.size() > 6 && codigo.front() != '0'));
}

bool leerLocales(Puesto& p, std::vector<Local>& locales) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u"SELECT cProdCode, nProdPrecUnit, nActivo FROM Producto"_sql, rs)) {
    return false;
  }
  locales.reserve(static_cast<size_t>(rs.RecordCount()));
  for (const auto& f : rs) {
    locales.push_back({AEntero(Numero(f.celda(0))), Numero(f.celda(1)), Numero(f.celda(2)) == 1});
  }
  return true;
}

// All prices that there are, `rs`; where they are many, the last one of each article on sale.
bool leerPrecios(Puesto& p, qsizetype articulos, Recordset& rs) {
  const auto leer = [&](const Sql& sql) { return p.poDBAdmin.EjecutarConsulta(p.poCnnCentral, sql, rs); };
  if (!leer(u"SELECT COUNT(*) AS nFilas FROM ArticuloPrecioVenta"_sql)) return false;
  if (Numero(rs[0]) <= kPreciosPorArticulo * static_cast<double>(articulos)) {
    return leer(u"SELECT cCodArtic, nNumItem, nPrecioVtaNew FROM ArticuloPrecioVenta"_sql);
  }
  return leer(u"SELECT A.cCodartic, 1 AS nNumItem, (SELECT TOP 1 B.nPrecioVtaNew FROM ArticuloPrecioVenta B "
              "WHERE B.cCodArtic = A.cCodartic ORDER BY B.nNumItem DESC) AS nPrecio FROM Articulo A "
              "WHERE A.bFlagVenta = 1 AND NOT A.bFlagDesc = 1"_sql);
}

}  // namespace

bool CompararSurtido(Puesto& p, Surtido& c) {
  std::vector<Local> filas;
  Recordset rs, precios;
  if (!leerLocales(p, filas)) return false;
  Indice<Local> locales(std::move(filas));
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnCentral,
                                    u"SELECT A.cCodartic, CASE WHEN A.bFlagVenta = 1 AND NOT A.bFlagDesc = 1 THEN 1 "
                                    "ELSE 0 END AS nEnVenta FROM Articulo A"_sql,
                                    rs)) {
    return false;
  }
  std::vector<Articulo> leidos;
  leidos.reserve(static_cast<size_t>(rs.RecordCount()));
  for (const auto& f : rs) leidos.push_back({codigoDe(f), NumeroDeArticulo(f.celda(0)), Numero(f.celda(1)) == 1});
  Indice<Articulo> articulos(std::move(leidos));
  if (!leerPrecios(p, rs.RecordCount(), precios)) return false;
  for (const auto& f : precios) {
    Articulo* a = articulos.buscar(codigoDe(f));
    const double item = Numero(f.celda(1));
    if (!a || item <= a->item) continue;
    a->item = item;
    a->precio = f.celda(2).nula() ? kSinPrecio : Numero(f.celda(2));
  }
  for (const Articulo& a : articulos) {
    Local* aqui = a.numero < 0 ? nullptr : locales.buscar(a.numero);
    if (!aqui) continue;
    if (esSuyo(a.clave)) aqui->alla = true;
    if (!a.enVenta) {
      if (aqui->activo) c.fueraDeVenta.push_back(a.numero);
      continue;
    }
    if (!aqui->activo) c.vueltos.push_back(a.numero);
    if (a.precio != kSinPrecio && a.precio != aqui->precio && Redondear(a.precio - aqui->precio, 4) != 0) {
      c.precios.push_back({QString::fromUtf8(a.clave), a.numero, a.precio});
    }
  }
  for (const Local& l : locales) {
    if (l.activo && !l.alla) c.idos.push_back(l.clave);
  }
  return true;
}
