#pragma once
// A desk with the billing screen, its central rows and the screens that it opens, for the tests.
#include <gtest/gtest.h>

#include "apoyo/puesto_prueba.h"
#include "apoyo/servidor_prueba.h"
#include "credit/facturacion.h"
#include "credit/liquidacion_credito.h"
#include "credit/nota_consumo.h"
#include "credit/pagos.h"
#include "credit/papel_credito.h"
#include "documento/lineas.h"
#include "platform/text/numero.h"
#include "postgres/base_postgres.h"

inline QString q(const char* s) { return QString::fromUtf8(s); }
inline QString comoTexto(const std::optional<QString>& r) { return r.value_or(QStringLiteral("hecho")); }

class PantallasCreditoGuion : public PantallasCredito {
 public:
  QString supervisor;  // "" refuses
  std::optional<DocumentoPorPagar> porPagar;
  std::optional<DocumentoPorConsumir> porConsumir;
  std::optional<qint64> porLiquidar;
  QStringList abiertas;

  std::optional<TarjetaElegida> buscarCliente(const QString&) override { return {}; }
  std::optional<QString> autorizar(const QString& acto) override {
    abiertas << acto;
    return supervisor.isEmpty() ? std::nullopt : std::optional(supervisor);
  }
  std::optional<QString> buscarArticulo() override { return {}; }
  std::optional<DocumentoPorPagar> documentoPorPagar(DocCredito) override { return porPagar; }
  std::optional<DocumentoPorConsumir> documentoPorConsumir(DocCredito) override { return porConsumir; }
  std::optional<qint64> documentoPorLiquidar(DocCredito) override { return porLiquidar; }
  void anularDocumento(DocCredito) override { abiertas << QStringLiteral("documento"); }
  void anularPago(const QString& serie, const QString& numero) override { abiertas << serie + u'-' + numero; }
  std::optional<TarjetaElegida> nuevoCliente() override { return {}; }
};

// The rows that a central database starts with, and a customer with card 00000007 at site 1.
inline void llenarServidores(PuestoPrueba& p) {
  Conexion central, cliente;
  EXPECT_TRUE(p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral));
  EXPECT_TRUE(p.poDBAdmin.AbrirBD(cliente, p.ses.psConexionCliente));
  for (const char* sql : {"INSERT INTO parametro (cCodParam, nmonto1, vtexto1) VALUES ('IGV', 18, NULL)",
                          "INSERT INTO parametro (cCodParam, nmonto1, vtexto1) VALUES ('DETRS', 700, NULL)",
                          "INSERT INTO parametro (cCodParam, nmonto1, vtexto1) VALUES ('DETRP', 12, NULL)",
                          "INSERT INTO parametro (cCodParam, nmonto1, vtexto1) VALUES ('CTABN', 0, '00-071-003')",
                          "INSERT INTO TipoCredito (cCodTipoCredito, vDscTipoCredito) VALUES ('01', '30 DIAS')",
                          "INSERT INTO tipoformapago (cCodTipoPago, vDscTipoPago) VALUES ('01', 'A EFECTIVO')",
                          "INSERT INTO tipoformapago (cCodTipoPago, vDscTipoPago) VALUES ('02', 'B TARJETA')",
                          "INSERT INTO tipoformapago (cCodTipoPago, vDscTipoPago) VALUES ('03', 'C CERTIFICADO')",
                          "INSERT INTO tipoformapago (cCodTipoPago, vDscTipoPago) VALUES ('04', 'D BANCO')",
                          "INSERT INTO banco (cCodBanco, vDscBanco) VALUES ('01', 'A VALLE')",
                          "INSERT INTO banco (cCodBanco, vDscBanco) VALUES ('02', 'B NACION')",
                          "INSERT INTO tipo_tarjeta (cod_tar, descrip) VALUES ('001', 'CREDITO')",
                          "INSERT INTO local (idlocal, dsclocal, Activo) VALUES (1, 'SUR', 1)",
                          "INSERT INTO local (idlocal, dsclocal, Activo) VALUES (2, 'NORTE', 0)"}) {
    p.ejecuta(central, q(sql));
  }
  p.ejecuta(cliente, QStringLiteral("INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName) "
                                    "VALUES (70, 1, 'O''HIGGINS', 'ANA')"));
  p.ejecuta(cliente, QStringLiteral("INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, cTarjActi, dCaduDate) "
                                    "VALUES (70, 1, '00000007', 1, '20301231')"));
}

enum class EnMotor { Embebido, Postgres };

// The two servers of a desk on the test program's PostgreSQL, whose clock stands with the desk's. All tests of a
// program share them, and each begins with empty tables.
struct ServidoresCredito {
  CadenaConexion central, cliente;
};
inline std::optional<ServidoresCredito> servidoresEn(EnMotor motor) {
  if (motor == EnMotor::Embebido) return {};
  ServidorPrueba& servidor = ServidorPrueba::uno();
  static const ServidoresCredito suyos = [&servidor] {
    const QStringList reloj{QStringLiteral(
        "CREATE OR REPLACE FUNCTION dbo.tp_ahora() RETURNS timestamp LANGUAGE sql STABLE AS $$ SELECT timestamp "
        "'2026-11-24 10:30:15' $$")};
    return ServidoresCredito{servidor.base(BaseServidor::Central, reloj), servidor.base(BaseServidor::Cliente, reloj)};
  }();
  const QString vacia = QStringLiteral(
      "DROP SCHEMA IF EXISTS guarda CASCADE; DO $$ DECLARE t text; BEGIN FOR t IN SELECT relname FROM pg_class WHERE "
      "relnamespace = 'dbo'::regnamespace AND relkind = 'r' AND relname <> 'version_tablas' LOOP "
      "EXECUTE 'DELETE FROM dbo.' || t; END LOOP; END $$");
  servidor.crudo(suyos.central, vacia);
  servidor.crudo(suyos.cliente, vacia);
  return suyos;
}

// That of this run: the same tests are run once on each.
inline EnMotor motorDeHoy() {
  return qEnvironmentVariable("TARVOPOS_PRUEBA_MOTOR") == u"postgres" ? EnMotor::Postgres : EnMotor::Embebido;
}

struct Credito {
  std::optional<ServidoresCredito> servidores;  // embedded ones without
  PuestoPrueba p;
  PantallasCreditoGuion pantallas;
  CajaFacturacionPagos v;

  // With `llenos` another desk has filled the servers.
  explicit Credito(const Envolver& envolver = {},
                   const std::optional<ServidoresCredito>& en = servidoresEn(motorDeHoy()), bool llenos = false)
      : servidores(en), p(envolver) {
    if (en) {
      p.ses.psConexionCentral = cadenaDe(en->central);
      p.ses.psConexionCliente = cadenaDe(en->cliente);
    }
    if (!llenos) llenarServidores(p);
    p.articulo(101, QStringLiteral("CAFE"), 10);
    p.articulo(102, QStringLiteral("ARROZ CON PATO"), 38, true);
    p.articulo(807, QStringLiteral("SACO"), 92);
    p.ejecuta(QStringLiteral("UPDATE Producto SET cFlagDetracc = 1 WHERE cProdCode = 807"));
    InicioFacturacion(p, v);
  }

  void linea(RejillaLineas& l, const char* codigo, const char* cantidad, const char* porcentaje = "") {
    const int fila = AgregarFila(l);
    EXPECT_EQ(TrasCelda::Cambiada, DejarCelda(p, l, fila, kCod, q(codigo)));
    (void)DejarCelda(p, l, fila, kCant, q(cantidad));
    if (*porcentaje != '\0') (void)DejarCelda(p, l, fila, kPorc, q(porcentaje));
  }
  // The customer and what a document needs but its lines.
  void cliente(int tipo, int moneda = 0) {
    v.factura.txtTarjeta = QStringLiteral("7");
    v.factura.cboTipoDocumento = tipo;
    v.factura.dcbTipoCredito = 0;
    v.factura.cboMoneda = moneda;
    v.factura.txtRUC = QStringLiteral("20123456789");
  }
  QString facturar() { return comoTexto(GrabarFactura(p, v, pantallas)); }
  // A whole document: 101 CAFE at 10.00, 807 SACO at 92.00, which falls under the detraction.
  QString facturar(int tipo, const char* cantidad, int moneda = 0, const char* articulo = "101") {
    cliente(tipo, moneda);
    linea(v.factura.rejilla, articulo, cantidad);
    return facturar();
  }

  void cargarPago(const QString& tipoDoc, const QString& serie, const QString& numero) {
    DocumentoPorPagar d;
    d.TipoDoc = tipoDoc;
    d.cSerieDoc = serie;
    d.NroDoc = numero;
    CargarPagos(p, v.pago, d);
  }
  void cargarPago(const char* tipoDoc, const char* numero) { cargarPago(q(tipoDoc), QStringLiteral("001"), q(numero)); }
  // `forma` counts from 0 in the order of the codes; the currency too.
  QString pagar(int forma, int moneda, const char* monto) {
    v.pago.dcbFormaPago = forma;
    CambiarForma(v);
    if (forma == 1) v.pago.dcbTarjeta = 0;
    if (forma == 2) v.pago.txtNroCertificadoRetencion = QStringLiteral("CR-77");
    if (forma == 3) {
      v.pago.dcbBanco = 0;
      CambiarBanco(v);
      v.pago.txtNroCuenta = QStringLiteral("191-1");
      v.pago.txtNroOperacion = QStringLiteral("OP'9");
    }
    v.pago.cboMoneda1 = moneda;
    (moneda == 1 ? v.pago.txtMontoDolares : v.pago.txtMontoSoles) = q(monto);
    CambiarMontoPago(p, v.pago);
    return comoTexto(GrabarPago(p, v));
  }

  // The deposit of the loaded document's detraction, up to its commit.
  void llenarDeposito() {
    v.pago.dcbFormaPago = 3;
    CambiarForma(v);
    v.pago.dcbBanco = 1;
    CambiarBanco(v);
    v.pago.txtNroOperacion = QStringLiteral("D-1");
  }
  QString depositar() {
    llenarDeposito();
    return comoTexto(GrabarPago(p, v));
  }

  void cargarNota(qint64 cCodVta) {
    DocumentoPorConsumir d;
    d.cCodVta = cCodVta;
    d.local = QStringLiteral("SUR");
    d.tipoCredito = QStringLiteral("30 DIAS");
    CargarDocumentoNC(p, v.nota, d);
  }
  QString consumir(qint64 cCodVta, const char* cantidad, const char* porcentaje = "") {
    cargarNota(cCodVta);
    linea(v.nota.rejilla, "101", cantidad, porcentaje);
    TotalesNota(p, v.nota);
    return comoTexto(GrabarNota(p, v, pantallas));
  }
  QString liquidar(qint64 cCodVta) {
    LimpiarLiquidacion(v.liquidacion);
    v.liquidacion.txtTXL = QString::number(cCodVta);
    (void)AgregarDocumentoLQ(p, v.liquidacion);
    return comoTexto(GrabarLiquidacion(p, v));
  }

  QString central(const char* sql) {
    Conexion c;
    EXPECT_TRUE(p.poDBAdmin.AbrirBD(c, p.ses.psConexionCentral));
    return p.filas(c, q(sql));
  }
  void enCentral(const char* sql) {
    Conexion c;
    EXPECT_TRUE(p.poDBAdmin.AbrirBD(c, p.ses.psConexionCentral));
    p.ejecuta(c, q(sql));
  }
  void enCliente(const char* sql) {
    Conexion c;
    EXPECT_TRUE(p.poDBAdmin.AbrirBD(c, p.ses.psConexionCliente));
    p.ejecuta(c, q(sql));
  }
  void abrirAlmacen() {
    EXPECT_TRUE(p.poDBAdmin.AbrirBD(p.poCnnLocal,
                                    QStringLiteral("driver={Microsoft Access Driver (*.mdb)};DBQ=") + p.ses.psRutaBD));
  }
  QByteArray impreso(const char* puerto) { return p.papeles().papel[QString::fromLatin1(puerto)]; }
  QString local(const char* sql) { return p.filas(q(sql)); }
};
