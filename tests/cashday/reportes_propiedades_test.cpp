// Properties of the reports over random days, and that no report reads the history.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <QFile>

#include <cmath>
#include <map>

#include "apoyo/plan_fallas.h"
#include "cashday/cierre_z.h"
#include "cashday/cifras.h"
#include "cashday/cuadre.h"
#include "cashday/impuestos.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "reporte_prueba.h"
#include "voiding/anulacion.h"
#include "voiding/pantallas_anulacion.h"

namespace {

QString u8(const char* s) { return QString::fromUtf8(s); }

// A row of Operacion in document `numero`; article 0 is the tender row, whose price is the change.
struct FilaOperacion {
  int codigo, tipo, articulo;
  double cantidad, precio, soles = 0, dolares = 0;
  const char* doc = "02";
  int anula = 0, anulada = 0;
  double dscto = 0, servicio = 0;
  const char* emisor = "";
};
void fila(PuestoPrueba& p, const FilaOperacion& f, const QString& turno = u8("01")) {
  p.ejecuta(
      u8("INSERT INTO Operacion (cOperCode, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, nServicio, "
         "cDocTipo, "
         "cDocSerie, cDocCodigo, cTurnoCodi, cOperTipo, cOperFlagAnula, cOperCodeAnula, nMontoSoles, nMontoDolares, "
         "cEmisor, dOperFech) VALUES (%1, '01', %2, %3, %4, %5, %6, '%7', '001', %1, '%8', %9, %10, %11, %12, %13, "
         "'%14', "
         "'24/11/2026 09:00')")
          .arg(f.codigo)
          .arg(f.articulo)
          .arg(f.cantidad)
          .arg(f.precio)
          .arg(f.dscto)
          .arg(f.servicio)
          .arg(u8(f.doc), turno)
          .arg(f.tipo)
          .arg(f.anulada)
          .arg(f.anula)
          .arg(f.soles)
          .arg(f.dolares)
          .arg(u8(f.emisor)));
}

// What a day's rows put into the drawer, and what of its sales is neither IGV nor service.
struct Sumas {
  double soles = 0, dolares = 0, retirado = 0, base = 0;
};

// One ticket: a line with a percentage and service, its tender row, and its void now and then; or a withdrawal.
void ticket(PuestoPrueba& p, int codigo, const QString& turno, Sumas& s) {
  const int tipo = *rc::gen::element(1, 1, 2, 3, 5), cant = *rc::gen::inRange(1, 9),
            anulada = *rc::gen::inRange(0, 5) == 0;
  const double precio = *rc::gen::inRange(1, 9999) / 100.0, dolares = *rc::gen::element(0, 0, 20);
  FilaOperacion f{codigo, tipo, tipo == 5 ? 0 : *rc::gen::inRange(101, 104), double(cant), precio};
  f.doc = tipo == 5 ? "" : *rc::gen::inRange(0, 3) == 0 ? "01" : "02";
  f.anulada = anulada;
  f.emisor = tipo == 2 ? ",VI" : "";
  if (f.articulo) f.dscto = *rc::gen::element(0, -10, 10, -100), f.servicio = *rc::gen::element(0, 10);
  fila(p, f, turno);
  const bool cobrado = tipo != 5 && *rc::gen::arbitrary<bool>();
  if (cobrado) fila(p, {codigo, tipo, 0, 1, -1.5, precio, dolares, f.doc, 0, anulada, 0, 0, f.emisor}, turno);
  if (anulada) fila(p, {codigo + 500, tipo, f.articulo, double(-cant), precio, 0, 0, f.doc, codigo, 1}, turno);
  if (anulada) return;
  if (tipo == 5) s.retirado += precio;
  else s.base += cant * precio * (100 + f.dscto) / (118 + f.servicio);
  if (cobrado && tipo != 2) s.soles += precio - 1.5, s.dolares += dolares;
}

// The first line in which two texts differ.
std::string primeraDistinta(const QString& a, const QString& b) {
  const QStringList x = a.split(u'\n'), y = b.split(u'\n');
  for (qsizetype i = 0; i < std::max(x.size(), y.size()); ++i) {
    if (x.value(i) != y.value(i)) return (x.value(i) + u8(" / ") + y.value(i)).toStdString();
  }
  return {};
}

// The turn-bound figures of a period by name.
std::map<std::string, double> cifras(PuestoPrueba& p, const Sql& turno) {
  LectorReporte l(p, {.sFiltro = u" and o.cOperId > 0 "_sql, .sFiltroP = u" and o.cOperCode > 0 "_sql}, turno);
  const CifrasReporte c = LeerCifras(p, l, kConsultasX, nullptr);
  Conexion central;
  RC_ASSERT(p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral));
  const auto t = LeerImpuestos(p, l, kImpresoraPrincipal, central);
  const BloqueZ z = LeerBloqueZ(l, kImpresoraPrincipal);
  RC_ASSERT(l.bien() && t.has_value());
  // clang-format off
  std::map<std::string, double> m = {
      {"items", c.nItems}, {"venta", c.nVenta}, {"tickets", c.nTickets}, {"vouchers", c.nVouchers}, {"voucher",
          c.nVoucher},
      {"nulos", c.nNulos}, {"nulosMonto", c.nNulosMonto}, {"igv 01", t->igvFactura}, {"igv 02", t->igvBoleta},
      {"servicio", t->servicio}, {"boletas", z.boletas[0].monto}, {"facturas", z.facturas[0].monto}};
  for (const auto& f : c.productos) m["producto " + std::to_string(f.cProdCode)] = f.cantidad;
  return m;
}

TEST(ReportesPropiedades, TheTurnsAddUpToTheDay) {
  PuestoDeReporte p;
  for (int n = 101; n < 104; ++n) p.articulo(n, u8("A%1").arg(n), 1);
  p.ejecuta(u8("INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES ('24/11/2026', 3.75)"));
  const bool bien = rc::check([&p] {
    RC_ASSERT(!p.poCnnLocal.iniciar());
    std::map<std::string, double> suma;
    Sumas dentro;
    int codigo = 0;
    const int turnos = *rc::gen::inRange(1, 4);
    for (int t = 1; t <= turnos; ++t) {
      for (int n = *rc::gen::inRange(0, 8); n > 0; --n) ticket(p, ++codigo, u8("0%1").arg(t), dentro);
    }
    for (int t = 1; t <= turnos; ++t) {
      for (const auto& [nombre, valor] : cifras(p, CondicionTurno(u8("0%1").arg(t)))) suma[nombre] += valor;
    }
    auto dia = cifras(p, {});
    const double apertura = *rc::gen::inRange(0, 50000) / 100.0;
    p.ejecuta(u8("UPDATE Configuracion SET nImporApertSol = %1, nImporApertDol = 7").arg(apertura));
    LadoCuadre c;
    RC_ASSERT(CuadreCaja(p, c));
    (void)p.poCnnLocal.deshacer();
    const auto cerca = [](double a, double b, double falta) { return std::abs(a - b) < falta; };
    RC_ASSERT(cerca(LeerImporte(c.txtCashDRW), apertura + dentro.soles - dentro.retirado, 0.0051));
    RC_ASSERT(cerca(LeerImporte(c.txtCashDRWDolares), 7 + dentro.dolares, 0.0051));
    RC_ASSERT(cerca(dia["venta"], dentro.base + dia["igv 01"] + dia["igv 02"] + dia["servicio"], 1e-6));
    for (const auto& [nombre, valor] : dia) {
      RC_LOG() << nombre << ' ' << valor << ' ' << suma[nombre] << '\n';
      RC_ASSERT(std::abs(valor - suma[nombre]) < 1e-6);
    }
    RC_ASSERT(std::abs(dia["boletas"] + dia["facturas"] - dia["venta"]) < 1e-6);
  });
  // clang-format on
  EXPECT_TRUE(bien);
}

// Every paper of the day and the count, without what a void may change: NULOS and the numbers in use.
QString figuras(PuestoDeReporte& p) {
  p.papeles().papel.clear();
  EXPECT_TRUE(ReportesEspeciales(p, PedidoX()).hecho() && ReportesEspeciales1(p, PedidoX()).hecho());
  for (int n = 0; n < 2; ++n) p.persona().espera(u8("Ingrese una fecha"), u8("24/11/2026"));
  EXPECT_TRUE(ReportesEspeciales1Fecha(p, u8("Z")).hecho() && ReportesEspecialesFecha(p, u8("Z")).hecho());
  QString r;
  for (const char* puerto : {"LPT1", "LPT2"}) {
    const QStringList lineas = DeUnByte(p.papeles().papel[u8(puerto)]).split(u'\n');
    for (qsizetype i = 0; i < lineas.size(); ++i) {
      if (lineas[i].startsWith(u8("NULOS"))) ++i;  // and its amount
      else if (!lineas[i].startsWith(u8("Correlativo")) && !lineas[i].startsWith(u8("RANGO"))) r += lineas[i] + u'\n';
    }
  }
  Cuadre c;
  CargarCuadre(p, c);
  for (const auto& l : c.lado) {
    r += QStringList{l.txtPagos,       l.txtVoucher, l.txtVoucherDolares, l.txtCash,
                     l.txtCashDolares, l.txtCashDRW, l.txtCashDRWDolares}
             .join(u' ') +
         u'\n';
  }
  return r;
}

struct JefeQueFirma final : PantallasAnulacion {
  std::optional<QString> autorizar(const QString&) override { return u8("JEFE"); }
};

void anular(PuestoPrueba& p, int codigo, bool paralela) {
  PantallaTransaccion v;
  JefeQueFirma jefe;
  v.chkAlterno = paralela;
  v.txtTransaccion = QString::number(codigo);
  BuscarTransaccion(p, v);
  RC_ASSERT(v.cargada.has_value());
  Anular(p, v, jefe);
  RC_ASSERT(!v.accion);
}

void paralela(PuestoPrueba& p, int codigo, int tipo, const char* doc, double soles, int moneda = 1,
              const char* estado = "1") {
  p.ejecuta(
      u8("INSERT INTO OperacionParalela (cOperCode, cOperTipo, cDocTipo, cDocSerie, cDocCodigo, cEstado, "
         "cOperCodeRela, "
         "dOperFech, cTurnoCodi, cUserDesc, nMoneda, nMontoSoles, nMontoDolares, nEfectivoSoles) VALUES (%1, %2, '%3', "
         "'XX1', %1, '%4', 0, '24/11/2026 09:00', '01', 'ANA', %5, %6, %6, %6)")
          .arg(codigo)
          .arg(tipo)
          .arg(u8(doc), u8(estado))
          .arg(moneda)
          .arg(soles));
  if (tipo > 21) return;
  p.ejecuta(
      u8("INSERT INTO OperacionParalelaProducto (cAlmaCode, cOperCode, cProdCode, nProdCant, nProdPrecUnit, nDscto, "
         "nServicio) "
         "VALUES ('01', %1, 101, 2, %2, 0, 10)")
          .arg(codigo)
          .arg(soles / 2));
}

// Sells something of some kind and takes it back. The card row of a PADV is left out: it outlives its void and goes on
// counting as one voucher of no amount.
void venderYAnular(PuestoPrueba& p, int codigo) {
  const int tipo = *rc::gen::element(1, 2, 3, 20, 21, 22, 23);
  const double total = *rc::gen::inRange(1, 9999) / 50.0, dolares = *rc::gen::element(0, 20);
  const char* doc = *rc::gen::element("01", "02");
  const bool conEfectivo = *rc::gen::arbitrary<bool>();
  if (tipo == 20 && conEfectivo) fila(p, {codigo, 1, 0, 1, -3, total + 3, dolares, "10"});
  if (tipo >= 20) {
    paralela(p, codigo, tipo,
             tipo == 20   ? "10"
             : tipo == 21 ? "11"
             : tipo == 22 ? "12"
                          : "13",
             total, *rc::gen::inRange(1, 3));
    return anular(p, codigo, true);
  }
  if (tipo == 3) {  // the advance payment and the note are there before, in force
    const QString liquidadas =
        u8("UPDATE OperacionParalela SET cEstado = '2', cOperCodeRela = %1 WHERE cOperCode IN (31, 32)");
    p.ejecuta(liquidadas.arg(codigo));
    paralela(p, codigo, 24, "14", total, 0, "2");
    fila(p, {codigo, conEfectivo ? 1 : 2, 0, 1, conEfectivo ? -2.5 : 0, total + 2.5, 0, "14"});
    p.persona().espera(u8("Desea Continuar?"), u8("Sí"));
  }
  const char* emisor = tipo == 2 ? ",001,002" : "";
  const int liquidacion = tipo == 3 ? codigo : 0, articulos = *rc::gen::inRange(1, 4);
  for (int n = 0; n < articulos; ++n) {
    fila(p, {codigo, tipo, *rc::gen::inRange(101, 104), 2, total, 0, 0, doc, liquidacion, 0,
             *rc::gen::element(0., -10., 10.), *rc::gen::element(0., 10.), emisor});
  }
  if (tipo != 2 || conEfectivo)
    fila(p, {codigo, tipo == 3 ? 3 : 1, 0, 1, -1.5, total, dolares, doc, liquidacion, 0, 0, 0, emisor});
  anular(p, codigo, false);
}

TEST(ReportesPropiedades, ASaleAndItsVoidChangeNothingButTheVoids) {
  PuestoDeReporte p;
  p.cargarDia();
  for (int n : {31, 32}) paralela(p, n, n == 31 ? 22 : 21, n == 31 ? "12" : "11", 40);
  const QString antes = figuras(p);
  EXPECT_GT(antes.count(u'\n'), 200);
  const QString base = p.ses.psRutaBD, copia = base + u8(".antes");
  p.poCnnLocal.cerrar();
  ASSERT_TRUE(QFile::copy(base, copia));
  const bool bien = rc::check([&] {
    // Each time on the desk as it was: a void is a transaction of its own, so it can't be undone by one around it.
    QFile::remove(base);
    RC_ASSERT(QFile::copy(copia, base));
    RC_ASSERT(p.poDBAdmin.AbrirBD(p.poCnnLocal, u8("driver={Microsoft Access Driver (*.mdb)};DBQ=") + base));
    for (int n = *rc::gen::inRange(1, 6); n > 0; --n) venderYAnular(p, 2000 - 10 * n);  // the void takes the next code
    const QString despues = figuras(p);
    p.poCnnLocal.cerrar();
    RC_ASSERT(primeraDistinta(antes, despues) == "");
  });
  EXPECT_TRUE(bien);
}

// The planner never walks a table of operations, nor takes an index on kind or state, whatever bounds the period.
TEST(ReportesPropiedades, NoReportReadsTheHistory) {
  for (const char* periodo : {"marcas", "abierto", "fecha"}) {
    PlanFallas plan;
    PuestoDeReporte p([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); });
    p.cargarDia();
    if (*periodo == 'a') p.ejecuta(u8("UPDATE Configuracion SET cOperId = NULL"));
    plan.armar(0);
    if (*periodo == 'f') {
      for (int n = 0; n < 2; ++n) p.persona().espera(u8("Ingrese una fecha"), u8("24/11/2026"));
      EXPECT_TRUE(ReportesEspeciales1Fecha(p, u8("Z")).hecho() && ReportesEspecialesFecha(p, u8("Z")).hecho());
    } else {
      EXPECT_TRUE(EnviarDetalleZ1(p, -1) && p.cerrarZ1() && p.cerrarZ());
    }
    const QStringList sentencias = plan.sentencias;
    int vistas = 0;
    for (const QString& s : sentencias) {
      if (!s.trimmed().startsWith(u8("SELECT"), Qt::CaseInsensitive) || s.contains(u8("cdocTipo = '11' And"))) continue;
      const QString camino = p.filas(u8("EXPLAIN QUERY PLAN ") + p.poCnnLocal.traducir(s));
      vistas += camino.contains(u8("Operacion"));
      for (const char* malo : {"SCAN o\n", "SCAN o ", "SCAN d", "Operacion_fecha\n", "_estado", "_numero", "error:"}) {
        EXPECT_FALSE((camino + u'\n').contains(u8(malo))) << periodo << "\n"
                                                          << qPrintable(s) << "\n"
                                                          << qPrintable(camino);
      }
    }
    EXPECT_GT(vistas, 20);
  }
}

}  // namespace
