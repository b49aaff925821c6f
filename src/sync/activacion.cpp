#include <QSet>

#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/text/numero.h"
#include "sync/maestros.h"
#include "sync/updt.h"

namespace {

constexpr LiteralSql kEnVenta = u" AND bFlagVenta = 1 AND NOT bFlagDesc = 1"_sql;

qint64 codigoDe(const Recordset::Fila& f) { return AEntero(Numero(f[0])); }

class Activacion {
 public:
  Activacion(Puesto& p, FrmUpdt& pantalla, const Surtido& surtido) : p_(p), pantalla_(pantalla), surtido_(surtido) {}

  FinPasada todo() {
    pantalla_.InsertaLinea(QStringLiteral("Desactivando / Activando Articulos"));
    FinPasada fin = surtido_.idos.empty() ? FinPasada::Bien : idos();
    if (fin == FinPasada::Bien && !liberarTeclas(u"IN (SELECT cProdCode FROM Producto WHERE nActivo =0) "_sql)) {
      fin = FinPasada::Mal;
    }
    if (fin == FinPasada::Bien && !surtido_.fueraDeVenta.empty()) fin = fueraDeVenta();
    if (fin == FinPasada::Bien && !surtido_.vueltos.empty()) fin = vueltos();
    if (fin == FinPasada::Bien) pantalla_.AumentaBarra(10);
    return fin;
  }

 private:
  // What a row looks up on the other side: its key there, and the rows that have it.
  struct Busqueda {
    Conexion& donde;
    LiteralSql columnas, clave;  // "SELECT ... FROM T" and its key
    Sql condicion;               // more of it
    std::function<Valor(const Recordset::Fila&)> valor;
    std::function<FinFila(const Recordset::Fila&, const Recordset::Fila* hallada)> fila;
  };

  // A pass whose rows each look one row up: one query a row, or one for all rows of a batch.
  FinPasada buscando(Conexion& origen, const std::function<Sql(const Recordset::Fila*)>& pagina, const Busqueda& b) {
    const auto una = [&](const Recordset::Fila& f) -> FinFila {
      Recordset rs;
      const Sql sql = b.columnas + FormatearSQL(u" WHERE $ = $"_sql, {b.clave, b.valor(f)}) + b.condicion;
      if (!p_.poDBAdmin.EjecutarConsulta(b.donde, sql, rs)) return {Suerte::Termina, {}, nullptr};
      if (rs.Eof()) return b.fila(f, nullptr);
      const Recordset::Fila hallada = *rs.begin();
      return b.fila(f, &hallada);
    };
    const auto juntas = [&](const Filas& filas) -> std::vector<FinFila> {
      std::vector<Sql> valores;
      for (const auto& f : filas) valores.push_back(FormatearSQL(u"$"_sql, {b.valor(f)}));
      Recordset rs;
      if (b.donde.consultar(
              b.columnas + FormatearSQL(u" WHERE $ IN ($)"_sql, {b.clave, UnirSql(valores, u", "_sql)}) + b.condicion,
              rs)) {
        return {};
      }
      QHash<qint64, Recordset::Fila> halladas;
      for (const auto& f : rs) halladas.insert(codigoDe(f), f);
      return EnUnaTransaccion(p_.poCnnLocal, [&](const Recordset::Fila& f) {
        const auto h = halladas.constFind(codigoDe(f));
        return b.fila(f, h == halladas.constEnd() ? nullptr : &*h);
      })(filas);
    };
    return Recorrer(
        p_, pantalla_,
        {.origen = origen, .palabras = {}, .sePuedeDetener = true, .pagina = pagina, .fila = una, .lote = juntas});
  }

  // The articles of the store by their state, in pages.
  std::function<Sql(const Recordset::Fila*)> locales(int activo) const {
    return [activo](const Recordset::Fila* u) {
      return FormatearSQL(
          u" SELECT TOP $ cProdCode   FROM producto   WHERE nActivo = $ AND cProdCode > $ ORDER BY cProdCode"_sql,
          {kFilasPorPagina, activo, u ? codigoDe(*u) : -1});
    };
  }

  static Valor comoCentral(const Recordset::Fila& f) {
    return FormatearSQL(u"'$'"_sql, {Texto(CodigoCentral(codigoDe(f)))});
  }

  bool liberarTeclas(const Sql& cuales) {
    return p_.poDBAdmin.EjecutarSentencia(
        p_.poCnnLocal,
        u" UPDATE configuracionTeclado    SET cProdCode = 0  , cTeclFlagAsig='0' where cProdCode "_sql + cuales, true);
  }

  FinFila inhabilitar(qint64 codigo) {
    const auto error =
        p_.poCnnLocal.ejecutar(FormatearSQL(u" UPDATE producto    SET nActivo = 0  WHERE cProdCode = $"_sql, {codigo}));
    return {error ? Suerte::Fallo : Suerte::Hecha, QString::number(codigo), &inhabilita_};
  }

  FinPasada idos() {
    return buscando(p_.poCnnLocal, locales(1),
                    {.donde = p_.poCnnCentral,
                     .columnas = u" SELECT cCodArtic   FROM Articulo"_sql,
                     .clave = u"cCodArtic"_sql,
                     .condicion = {},
                     .valor = comoCentral,
                     .fila = [this](const auto& f, const Recordset::Fila* hallada) -> FinFila {
                       if (hallada) return {};
                       const FinFila fin = inhabilitar(codigoDe(f));
                       if (liberarTeclas(FormatearSQL(u"= $"_sql, {codigoDe(f)}))) return fin;
                       return {Suerte::Termina, {}, nullptr};
                     }});
  }

  FinPasada fueraDeVenta() {
    const auto pagina = [](const Recordset::Fila* u) {
      return FormatearSQL(u" SELECT TOP $ cCodArtic   FROM Articulo   WHERE (bFlagVenta = 0    OR bFlagDesc = 1)"
                          " AND cCodArtic > '$' ORDER BY cCodArtic"_sql,
                          {kFilasPorPagina, Texto(u ? LimpiarNulo((*u)[0]) : QString())});
    };
    return buscando(p_.poCnnCentral, pagina,
                    {.donde = p_.poCnnLocal,
                     .columnas = u" Select cProdCode, nActivo from producto"_sql,
                     .clave = u"cProdCode"_sql,
                     .condicion = {},
                     .valor = [](const auto& f) { return Valor(codigoDe(f)); },
                     .fila = [this](const auto& f, const Recordset::Fila* hallada) -> FinFila {
                       if (!hallada || Numero((*hallada)[1]) != 1) return {};
                       return inhabilitar(codigoDe(f));
                     }});
  }

  FinPasada vueltos() {
    return buscando(p_.poCnnLocal, locales(0),
                    {.donde = p_.poCnnCentral,
                     .columnas = u" SELECT cCodArtic, cCodCatal, vDscartic,  vDscartCt   FROM Articulo"_sql,
                     .clave = u"cCodArtic"_sql,
                     .condicion = kEnVenta,
                     .valor = comoCentral,
                     .fila = [this](const auto& f, const Recordset::Fila* h) -> FinFila {
                       if (!h) return {};
                       const auto texto = [h](int columna) { return Texto(LimpiarNulo((*h)[columna])); };
                       const auto error = p_.poCnnLocal.ejecutar(
                           FormatearSQL(u" UPDATE producto  SET nActivo = 1,  sProdDesc = '$',  sProdDescCrta = '$',"
                                        "  cCodCatalogo = '$'  WHERE cProdCode = $"_sql,
                                        {texto(2), texto(3), texto(1), codigoDe(f)}));
                       return {error ? Suerte::Fallo : Suerte::Hecha, QString::number(codigoDe(f)), &habilita_};
                     }});
  }

  Puesto& p_;
  FrmUpdt& pantalla_;
  const Surtido& surtido_;
  const Palabras inhabilita_{QStringLiteral("Se inhabilitó Artículo de código: "),
                             QStringLiteral("No se pudo inhabilitar Artículo de código: ")};
  const Palabras habilita_{QStringLiteral("Se habilitó Artículo de código: "),
                           QStringLiteral("No se pudo habilitar Artículo de código: ")};
};

}  // namespace

FinPasada ActivarArticulos(Puesto& p, FrmUpdt& pantalla, const Surtido& surtido) {
  return Activacion(p, pantalla, surtido).todo();
}
