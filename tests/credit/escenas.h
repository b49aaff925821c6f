#pragma once
// The acts that write in store and servers, each as a scene: what stands before it, and the act itself, which can be
// done again from the same screen. And what every one of them leaves.
#include <cstring>
#include <initializer_list>

#include "apoyo/plan_fallas.h"
#include "credit/anulacion_credito.h"
#include "credito_prueba.h"
#include "foundation/acto_doble.h"
#include "loyalty/cliente_nuevo.h"
#include "voiding/anulacion_consumo.h"

struct Escena {
  const char* nombre;
  bool siempre;  // else in the long run alone: it differs little from another one
  void (*preparar)(Credito&);
  QString (*hacer)(Credito&);  // "hecho" when the screen took it as done
};

inline QString comoTexto(bool hecho) { return hecho ? QStringLiteral("hecho") : QStringLiteral("no"); }

inline bool largo() { return qEnvironmentVariableIsSet("TARVOPOS_LARGO"); }

inline QString anular(Credito& e, ModoAnular modo, const QString& serie, const QString& numero) {
  AnularTransaccionCtaCte v;
  v.Modo = modo;
  v.txtSerie = serie;
  v.txtNumero = numero;
  e.pantallas.supervisor = QStringLiteral("JEFE");
  return comoTexto(CargarDocumentoAnular(e.p, v) && v.cargado() && AceptarAnulacion(e.p, v, e.pantallas));
}
inline QString anular(Credito& e, ModoAnular modo, const char* serie) {
  return anular(e, modo, QString::fromUtf8(serie), QStringLiteral("1"));
}

inline QString anularNota(Credito& e, qint64 codigo) {
  DocumentoGuardado nota;
  return comoTexto(LeerDocumento(e.p, codigo, true, nota) == LecturaDocumento::Leida && nota.vigente &&
                   AnularConsumo(e.p, nota));
}

inline QString nuevoCliente(Credito& e) {
  ClienteNuevo v;
  v.txtTarjeta = QStringLiteral("00000071");
  v.txtApellidos = QStringLiteral("MUÑOZ D'ALESSIO");
  v.txtNombres = QStringLiteral("LUZ");
  v.departamento.codigo = v.provincia.codigo = v.distrito.codigo = kLugarOtro;
  v.chkFNacimiento = false;
  v.dcbLocal = 1;
  return comoTexto(GrabarCliente(e.p, v).has_value());
}

// A document of 100.00 in soles, and what is left to do on it.
inline void bade(Credito& e) { (void)e.facturar(1, "10"); }
inline void conPago(Credito& e, int forma, int moneda, const char* monto) {
  e.cargarPago("02", "000001");
  (void)e.pagar(forma, moneda, monto);
}

inline const std::vector<Escena>& escenas() {
  // clang-format off
  static const std::vector<Escena> todas{
      {"Fade", true, [](Credito& e) {
         e.cliente(0); e.linea(e.v.factura.rejilla, "807", "9"); e.linea(e.v.factura.rejilla, "102", "1"); },
       [](Credito& e) { return e.facturar(); }},
      {"Bade", false, [](Credito& e) { e.cliente(1, 1); e.linea(e.v.factura.rejilla, "101", "4"); },
       [](Credito& e) { return e.facturar(); }},
      {"Pade", true, [](Credito& e) { bade(e); e.cargarPago("02", "000001"); },
       [](Credito& e) { return e.pagar(0, 1, "10"); }},
      {"Tarjeta", false, [](Credito& e) { bade(e); e.cargarPago("02", "000001"); },
       [](Credito& e) { return e.pagar(1, 0, "25.50"); }},
      {"Certificado", false, [](Credito& e) { bade(e); e.cargarPago("02", "000001"); },
       [](Credito& e) { return e.pagar(2, 0, "6"); }},
      {"Banco", false, [](Credito& e) { bade(e); e.cargarPago("02", "000001"); },
       [](Credito& e) { return e.pagar(3, 1, "3.33"); }},
      {"Deposito", true, [](Credito& e) {
         (void)e.facturar(0, "9", 0, "807"); e.cargarPago("01", "000001"); e.llenarDeposito(); },
       [](Credito& e) { return comoTexto(GrabarPago(e.p, e.v)); }},
      {"Nota", true, [](Credito& e) {
         bade(e); (void)e.consumir(1, "2"); e.cargarNota(1); e.linea(e.v.nota.rejilla, "101", "3");
         TotalesNota(e.p, e.v.nota); },
       [](Credito& e) { return comoTexto(GrabarNota(e.p, e.v, e.pantallas)); }},
      {"Liquidacion", true, [](Credito& e) {
         bade(e); (void)e.consumir(1, "2"); (void)e.consumir(1, "3"); conPago(e, 0, 0, "100");
         e.v.liquidacion.txtTXL = QStringLiteral("1"); (void)AgregarDocumentoLQ(e.p, e.v.liquidacion); },
       [](Credito& e) { return comoTexto(GrabarLiquidacion(e.p, e.v)); }},
      {"AnulaPago", true, [](Credito& e) { bade(e); conPago(e, 0, 0, "40"); },
       [](Credito& e) { return anular(e, ModoAnular::PADE, "PA1"); }},
      {"AnulaNota", true, [](Credito& e) { bade(e); (void)e.consumir(1, "2"); },
       [](Credito& e) { return anularNota(e, 1); }},
      {"AnulaBade", true, [](Credito& e) { bade(e); },
       [](Credito& e) { return anular(e, ModoAnular::BADE, "001"); }},
      {"Cliente", true, [](Credito& e) { e.enCliente("INSERT INTO local VALUES (1, 'SUR', 1)"); }, nuevoCliente},
  };
  // clang-format on
  return todas;
}

// Those of this run.
inline std::vector<Escena> escenasDeHoy() {
  std::vector<Escena> hoy = escenas();
  std::erase_if(hoy, [](const Escena& e) { return !e.siempre && !largo(); });
  return hoy;
}

// All that the acts write, in the three databases; nothing of an unfinished act.
inline QString historia(Credito& e) {
  QString h;
  const auto leer = [&](Conexion& c, std::initializer_list<const char*> consultas) {
    for (const char* sql : consultas) h += e.p.filas(c, QString::fromUtf8(sql)) + u'/';
  };
  const char *const clientes = "SELECT cClieCode, IdLocal, sClieApel, sClieName FROM Cliente ORDER BY cClieCode",
                    *const tarjetas = "SELECT cClieCode, nTarjNumb, dCaduDate FROM Tarjeta ORDER BY nTarjNumb",
                    *const actos = "SELECT cActo FROM Diario_Acto";
  Conexion central, cliente;
  EXPECT_TRUE(e.p.poDBAdmin.AbrirBD(central, e.p.ses.psConexionCentral));
  EXPECT_TRUE(e.p.poDBAdmin.AbrirBD(cliente, e.p.ses.psConexionCliente));
  leer(central, {"SELECT cCodVta, TipoDoc, NroDoc, TotVta, bLiquidado, FechaAnulacion FROM Venta01 ORDER BY cCodVta",
                 "SELECT cCodVta, NroItem, cCodartic FROM Venta02 ORDER BY cCodVta, NroItem",
                 "SELECT cSerieDocPago, NroDocPago, NroItem, FormaPago, Monto, Moneda, FechaAnulacion FROM Pagos "
                 "ORDER BY NroItem",
                 "SELECT NroDoc, MontoDetracc, Estado FROM Detraccion",
                 "SELECT cCodVta, cCajaCodi, cOperCode, nMonto, bAnulado FROM ConsumoVenta ORDER BY cOperCode", actos});
  leer(cliente, {clientes, tarjetas, actos});
  leer(e.p.poCnnLocal,
       {"SELECT cOperCode, cOperTipo, nMontoSoles, nVueltoSoles, cEstado, cOperCodeRela, cOperCodeAnul, cDocSerie, "
        "cDocCodigo FROM OperacionParalela ORDER BY cOperCode",
        "SELECT cOperCode, cProdCode, nProdCant FROM OperacionParalelaProducto ORDER BY cOperCode",
        "SELECT cOperCode, nProdPrecUnit, cDocTipo FROM Operacion ORDER BY cOperID",
        "SELECT cTipoDoc, nDocCodigo, cSerieDoc FROM Config_Documento ORDER BY cTipoDoc", clientes, tarjetas, actos});
  return h;
}

// The next start: nothing of the old connections lives, and both servers are looked at.
inline void empezarDeNuevo(Credito& e, const Sesion& sesion) {
  e.p.ses = sesion;
  for (Conexion* c : {&e.p.poCnnLocal, &e.p.poCnnCentral, &e.p.poCnnCliente}) c->cerrar();
  e.abrirAlmacen();
  Conexion central, cliente;
  ASSERT_TRUE(e.p.poDBAdmin.AbrirBD(central, e.p.ses.psConexionCentral));
  ASSERT_TRUE(e.p.poDBAdmin.AbrirBD(cliente, e.p.ses.psConexionCliente));
  EXPECT_TRUE(TerminarActos(e.p, ServidorActo::Central, central));
  EXPECT_TRUE(TerminarActos(e.p, ServidorActo::Cliente, cliente));
}

// Whether the cashier was told to look before he does it again.
inline bool dijoQueDudaba(Credito& e) {
  for (const auto& caja : e.p.persona().vistas) {
    if (caja.texto.contains(QStringLiteral("Revise si ")) ||
        caja.texto.contains(QStringLiteral("antes de registrarlo otra vez"))) {
      return true;
    }
  }
  return false;
}

// Behind a fault and the next start: the act as a whole or nothing of it, and where nothing stands the same screen does
// it. `fin` is what the act gave, nothing when its process died.
inline void comprobarHistoria(Credito& e, const Escena& escena, const CajaFacturacionPagos& pantalla,
                              const QString& antes, const QString& despues, const std::optional<QString>& fin) {
  const QString ahora = historia(e);
  if (ahora == despues) {
    const bool dijoQueNo = fin && fin != u"hecho" && !dijoQueDudaba(e);
    EXPECT_FALSE(dijoQueNo) << "it stands, and the cashier was told that it doesn't";
    return;
  }
  EXPECT_EQ(antes.toStdString(), ahora.toStdString());
  EXPECT_NE(QStringLiteral("hecho"), fin.value_or(QString()));
  // The screen of a process that lives on still holds it all.
  if (!fin) e.v = pantalla;
  EXPECT_EQ(QStringLiteral("hecho"), escena.hacer(e));
  EXPECT_EQ(despues.toStdString(), historia(e).toStdString());
}
