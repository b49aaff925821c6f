#include "alta/tienda_demo.h"

#include <QSet>

#include "alta/filas.h"
#include "alta/tienda_articulos.h"
#include "foundation/acceso.h"
#include "foundation/clave.h"
#include "platform/text/texto.h"

namespace {

struct Par {
  const char* codigo;
  const char16_t* nombre;
};

constexpr Par kLineas[] = {
    {"01", u"COMEDOR"},  {"02", u"BEBIDAS"},           {"03", u"LÁCTEOS"},   {"04", u"CARNES Y EMBUTIDOS"},
    {"05", u"HUEVOS"},   {"06", u"FRUTAS Y VERDURAS"}, {"07", u"PANADERÍA"}, {"08", u"ABARROTES"},
    {"09", u"ARTESANÍA"}};
struct Unidad {
  const char* codigo;
  const char16_t *nombre, *corta;
};
constexpr Unidad kUnidades[] = {{"UND", u"UNIDAD", u"UND"},
                                {"KGR", u"KILOGRAMO", u"KG"},
                                {"DOC", u"DOCENA", u"DOC"},
                                {"PLA", u"PLATO", u"PLA"},
                                {"SAC", u"SACO", u"SAC"}};
constexpr Par kTarjetas[] = {
    {"001", u"CRÉDITO"}, {"002", u"DÉBITO"}, {"003", u"BILLETERA MÓVIL"}, {"004", u"VALE DE ALIMENTOS"}};
constexpr Par kBancos[] = {{"01", u"BANCO DEL VALLE"}, {"03", u"CAJA RURAL LOS ANDES"}};
constexpr Par kCreditos[] = {{"02", u"15 DÍAS"}, {"03", u"60 DÍAS"}};
constexpr const char16_t* kCabecera[] = {u"GRANJA Y COMEDOR EL MOLLE S.A.C.", u"R.U.C. 20999999991",
                                         u"CARRETERA A LA HUERTA KM 14.5", u"LIMA - PERÚ", u"TELÉFONO 555-0142"};

// The keys of the quick register; 23 and 24 stay free, and from 25 on stand articles without a key to press.
constexpr int kTeclas[] = {101, 102, 104, 105, 107, 109, 110, 113, 201, 203, 206, 207, 301, 305, 401, 501,
                           601, 605, 701, 702, 704, 801, 0,   0,   103, 106, 108, 208, 308, 405, 805, 901};

enum class TarjetaDemo { Vigente, Vencida, Inactiva };
struct ClienteDemo {
  int codigo, local, tipo;
  const char16_t *apellidos, *nombres, *direccion;
  const char* tarjeta;
  int puntos;
  TarjetaDemo estado = TarjetaDemo::Vigente;
};
constexpr ClienteDemo kClientes[] = {
    {1, 1, 1, u"MUÑOZ IBÁÑEZ", u"ROSA ELENA", u"JR. LOS EUCALIPTOS 145", "00000001", 120},
    {2, 1, 1, u"QUISPE HUAMÁN", u"JULIÁN", u"AV. LAS ACEQUIAS 2210", "00000002", 0},
    {3, 1, 2, u"COLEGIO SAN ISIDRO LABRADOR", u"ADMINISTRACIÓN", u"CALLE LA ERA 50", "00000003", 0},
    {4, 1, 3, u"AGROSERVICIOS EL PUQUIO S.R.L.", u"COMPRAS", u"CARRETERA CENTRAL KM 22", "00000004", 0},
    {5, 1, 1, u"SALAZAR PEÑA", u"MIGUEL", u"PASAJE EL TRIGAL 8", "00000005", 35, TarjetaDemo::Vencida},
    {6, 1, 1, u"TORRES LEÓN", u"LUCÍA", u"AV. LOS MOLLES 901", "00000006", 15, TarjetaDemo::Inactiva},
    {7, 1, 1, u"VARGAS NÚÑEZ", u"ANDRÉS", u"CALLE LOS SAUCES 33", "00000007", 60},
    {7, 2, 1, u"CÁCERES OLIVERA", u"BEATRIZ", u"AV. DEL CAMPO 1200", "00000007", 240},
};

struct Lugar {
  int depa, prov, dist;
  const char16_t* nombre;
};
constexpr Lugar kLugares[] = {{15, 0, 0, u"LIMA"},       {15, 1, 0, u"LIMA"},   {15, 1, 1, u"LURÍN"},
                              {15, 1, 2, u"PACHACÁMAC"}, {15, 2, 0, u"CAÑETE"}, {15, 2, 1, u"MALA"},
                              {11, 0, 0, u"ICA"},        {11, 1, 0, u"ICA"},    {11, 1, 1, u"LA TINGUIÑA"}};

QString t(const char16_t* texto) { return QString::fromUtf16(texto); }
QString t(const char* texto) { return QString::fromLatin1(texto); }

const QDate kDiaDemo(2026, 11, 24);
const QDate kDiaSinCambio(2026, 11, 25);
const QDateTime kAlta(QDate(2026, 1, 5), QTime(0, 0));  // when the servers got their master data

template <class Lista>
QStringList pares(const Lista& lista, const char* tabla, const char* columnas) {
  QStringList s;
  for (const Par& p : lista) s << Insercion(t(tabla), t(columnas), {t(p.codigo), t(p.nombre)});
  return s;
}

QString lineaDeTienda(const ArticuloTienda& a) {
  for (const Par& l : kLineas) {
    if (t(l.codigo) == t(a.linea)) return t(l.nombre);
  }
  return {};
}

QString proveedorDe(const ArticuloTienda& a) {
  return t(a.linea) < u"08" ? QStringLiteral("GRANJA EL MOLLE") : QStringLiteral("PRODUCTORES DEL VALLE");
}

QStringList productos(const QString& almacen) {
  QStringList s;
  for (const ArticuloTienda& a : ArticulosDeTienda()) {
    const bool canje = a.venta == Venta::Canje;
    s << Insercion(QStringLiteral("Producto"),
                   QStringLiteral("cAlmaCode, cProdCode, sProdDesc, sProdDescCrta, nProdPrecUnit, cProdEstd, nActivo, "
                                  "cProdFlagFicha, cProdFichaCant, cProdFlagCanje, cFlagCanje, nPuntos, cFlagServicio, "
                                  "vDescProv, cUndSalida, cCodCatalogo, sDescLinea, cFlagDetracc"),
                   {almacen, a.codigo, t(a.descripcion), t(a.corta), a.precio, a.venta == Venta::Suspendido ? 0 : 1,
                    a.venta == Venta::Retirado ? 0 : 1, canje, canje ? 50 : 0, canje, a.canjePuntos, a.puntos,
                    a.servicio, proveedorDe(a), t(a.unidad), t(a.catalogo), lineaDeTienda(a), a.detraccion});
  }
  return s;
}

QStringList cambios(const QDateTime& ahora) {
  QStringList s;
  QSet<QDate> dias{kDiaSinCambio};
  for (const QDate& centro : {kDiaDemo, ahora.date()}) {
    for (int n = -7; n <= 7; ++n) {
      const QDate dia = centro.addDays(n);
      if (dias.contains(dia)) continue;
      dias.insert(dia);
      // 3.75 on the day in the middle, a cent or two beside it round about.
      const double cambio = (375 + (dia == centro ? 0 : n % 3)) / 100.0;
      s << Insercion(QStringLiteral("Tipo_Cambio"), QStringLiteral("dTipoCambFech, nTipoCambMont"), {dia, cambio});
    }
  }
  return s;
}

QStringList usuarios() {
  const QString columnas =
      QStringLiteral("sUserDesc, sUserPass, cPerfCode, sUserApel, sUserName, cUserActi, cUserFlag");
  const QString caja = QStringLiteral("caja"), clave = CifrarClave(caja).value_or(caja);
  return {Insercion(QStringLiteral("Usuario"), columnas,
                    {QStringLiteral("CAJERO"), clave, kPerfilCajero, QStringLiteral("RÍOS PEÑALOZA"),
                     QStringLiteral("CARMEN"), 1, 0}),
          Insercion(QStringLiteral("Usuario"), columnas,
                    {QStringLiteral("PRACTICANTE"), clave, kPerfilCajero, QStringLiteral("SOTO"),
                     QStringLiteral("INÉS"), 0, 0})};
}

// Cards run for a year less a day; the live ones are good on the demo's day as well as today.
struct Vigencia {
  QDate emision, caducidad;
};
Vigencia vigencia(const ClienteDemo& c, const QDateTime& ahora) {
  const QDate emision =
      c.estado == TarjetaDemo::Vencida ? QDate(2024, 5, 10) : std::max(kDiaDemo, ahora.date()).addDays(-90);
  return {emision, emision.addYears(1).addDays(-1)};
}

// Customers and cards with the columns that all three databases share, and the further ones of each.
QStringList clientes(const QDateTime& ahora, const QString& masColumnas, const QVariantList& masValores,
                     bool conLocal) {
  QStringList s;
  QSet<int> vistos;
  for (const ClienteDemo& c : kClientes) {
    // Without the local in the key a second customer of the same code finds no place.
    if (!conLocal && vistos.contains(c.codigo)) continue;
    vistos.insert(c.codigo);
    const Vigencia v = vigencia(c, ahora);
    const int local = conLocal ? c.local : 0;
    s << Insercion(
        QStringLiteral("Cliente"),
        QStringLiteral("cClieCode, IdLocal, sClieApel, sClieName, sClieAddr, cDepaCode, cProvCode, cDistCode, "
                       "sDepaDesc, sProvDesc, sDistDesc, sClieTelf, sClieMail, dUltTDate, cTranCode, iTipo, "
                       "nPuntCant, nTickCant") +
            masColumnas,
        QVariantList{c.codigo, local, t(c.apellidos), t(c.nombres), t(c.direccion), 15, 1, 1, QString(), QString(),
                     QString(), QStringLiteral("555-01%1").arg(c.codigo, 2, 10, QChar(u'0')), QString(), kAlta, 1,
                     c.tipo, c.puntos, 0} +
            masValores);
    s << Insercion(
        QStringLiteral("Tarjeta"),
        QStringLiteral("cClieCode, IdLocal, nTarjNumb, cTarjActi, dEmisDate, dCaduDate, sUserDesc, dUltOper") +
            masColumnas,
        QVariantList{c.codigo, local, t(c.tarjeta), c.estado == TarjetaDemo::Inactiva ? 0 : 1, v.emision, v.caducidad,
                     QStringLiteral("SUPERVISOR"), v.emision} +
            masValores);
  }
  return s;
}

QStringList articulosDelCentral() {
  QStringList s;
  for (const ArticuloTienda& a : ArticulosDeTienda()) {
    const QString codigo = Ceros(QString::number(a.codigo), 6);
    s << Insercion(QStringLiteral("Articulo"),
                   QStringLiteral("cCodartic, vDscartic, cCodCatal, vDscartCt, bSwActivo, cFlagCanje, nPtosxItem, "
                                  "nFlagServ, cUndSalida, bFlagDetracc, bFlagVenta, bFlagDesc, cCodProve, CCODLINEA, "
                                  "dFechCrea, dFechModi"),
                   {codigo, t(a.descripcion), t(a.catalogo), t(a.corta), a.venta == Venta::Suspendido, a.canjePuntos,
                    a.puntos, a.servicio, t(a.unidad), a.detraccion, a.venta != Venta::Retirado, false,
                    t(a.linea) < u"08" ? QStringLiteral("P01") : QStringLiteral("P02"), t(a.linea), kAlta, kAlta});
    const QString precio = QStringLiteral("cCodArtic, nNumItem, nPrecioVtaNew");
    // Two prices: the higher item counts.
    s << Insercion(QStringLiteral("ArticuloPrecioVenta"), precio, {codigo, 1, a.precio > 2 ? a.precio - 1 : a.precio})
      << Insercion(QStringLiteral("ArticuloPrecioVenta"), precio, {codigo, 2, a.precio})
      << Insercion(QStringLiteral("SaldoArticulo"), QStringLiteral("cCodAlmac, cCodArtic, dFecha, nSaldo"),
                   {QStringLiteral("01"), codigo, QDate(2026, 11, 1), 100});
  }
  return s;
}

}  // namespace

QString ImpresorasDeTienda() {
  return QStringLiteral("[IMPRESORAS]\r\n%1=LPT1\r\n%2=LPT2\r\n").arg(kImpresoraTienda, kImpresoraAlternaTienda);
}

QDateTime FechaDeTienda() { return QDateTime(QDate(2026, 11, 20), QTime(0, 0)); }

QString TeclaDelRegistro(int tecla, int articulo) {
  return Insercion(QStringLiteral("ConfiguracionTeclado"),
                   QStringLiteral("cTeclCode, sTeclDesc, sTeclRapd, cTeclFlagAsig, cProdCode"),
                   {tecla, QStringLiteral("DEP %1").arg(tecla), QString(),
                    articulo == 0 ? QStringLiteral("0") : QStringLiteral("1"), articulo});
}

QStringList TiendaDelPuesto(const QString& almacen, const QDateTime& ahora) {
  QStringList s = productos(almacen) + cambios(ahora) + usuarios() +
                  pares(kTarjetas, "tipo_tarjeta", "cod_tar, descrip") + clientes(ahora, QString(), {}, false);
  int n = 0;
  for (const int articulo : kTeclas) s << TeclaDelRegistro(++n, articulo);
  n = 0;
  for (const char16_t* linea : kCabecera) {
    s << Insercion(QStringLiteral("Cabecera_Impresion"), QStringLiteral("cCabeLinea, sCabeDescripcion"),
                   {++n, t(linea)});
  }
  for (const Unidad& u : kUnidades) {
    s << Insercion(QStringLiteral("UnidadMedida"), QStringLiteral("cUndmedid, vDscundmd, vDscCrta"),
                   {t(u.codigo), t(u.nombre), t(u.corta)});
  }
  return s;
}

QStringList TiendaDelCentral(const QDateTime& ahora) {
  QStringList s = pares(kLineas, "LINEA", "CCODLINEA, vDscLinea") + pares(kBancos, "banco", "cCodBanco, vDscBanco") +
                  pares(kTarjetas, "tipo_tarjeta", "cod_tar, descrip") +
                  pares(kCreditos, "TipoCredito", "cCodTipoCredito, vDscTipoCredito") +
                  pares(std::initializer_list<Par>{{"P01", u"GRANJA EL MOLLE"}, {"P02", u"PRODUCTORES DEL VALLE"}},
                        "Proveedor", "cCodProve, vRazSocPrv") +
                  articulosDelCentral() +
                  clientes(ahora, QStringLiteral(", dFechCrea, dFechModi"), {kAlta, kAlta}, true);
  for (const Unidad& u : kUnidades) {
    s << Insercion(QStringLiteral("UnidadMedida"),
                   QStringLiteral("cUndmedid, vDscundmd, vDscCrta, dFechCrea, dFechModi"),
                   {t(u.codigo), t(u.nombre), t(u.corta), kAlta, kAlta});
  }
  return s;
}

QStringList TiendaDelCliente(const QDateTime& ahora) {
  QStringList s = clientes(ahora, QStringLiteral(", bFlagSincro"), {0}, true);
  for (const Lugar& l : kLugares) {
    s << Insercion(QStringLiteral("Localidad"), QStringLiteral("cDepaCode, cProvCode, cDistCode, sLocaName"),
                   {l.depa, l.prov, l.dist, t(l.nombre)});
  }
  return s;
}
