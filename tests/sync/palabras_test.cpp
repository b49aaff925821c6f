// What a run says: its lines, its bar, and each thing that may fail in it with the line, the box or the log that tells.
#include <QFile>

#include "sync/reproceso.h"
#include "sync_prueba.h"

using namespace prueba_sync;

namespace {

const QString kDia = QStringLiteral("20/11/2026");

enum Acto { Primera, Cambios, Enviar, Reprocesar };

class Caja : public CajaConDias {
 public:
  explicit Caja(PlanFallas& plan, Acto acto)
      : CajaConDias([&plan](Motores& m) { return std::make_unique<MotoresConFallas>(m, plan); }), acto_(acto) {
    if (acto == Primera || acto == Cambios) {
      maestros(*this);
      ejecuta(q("UPDATE Sincronizacion SET dFechSincro = Null"));
    }
    if (acto == Cambios) {
      EXPECT_TRUE(sincronizar(*this, true).bien);
      ejecuta(q("UPDATE Producto SET nActivo = 0 WHERE cProdCode = 1234567"));
      ejecuta(central(), q("UPDATE Articulo SET vDscartic = 'QUESO FRESCO', dFechModi = '20261125' WHERE cCodartic = "
                           "'1234567'"));
      cambiosDeMaestros(*this);
    }
    if (acto == Enviar || acto == Reprocesar) diaCorto(kDia);
    if (acto == Reprocesar) (void)sincronizar(*this);
    QFile::remove(log());
    persona().vistas.clear();
    persona().dejaPasar(kDia);
    plan.armar(0);
    poCnnCentral.cerrar();
  }
  Corrida hacer() {
    if (acto_ != Reprocesar) return sincronizar(*this, acto_ != Enviar);
    FrmUpdt v(*this);
    SincronizarFecha(*this, v);
    return {true, QStringList(v.lstLog.begin(), v.lstLog.end()), v.Label1, v.lblEtiqueta};
  }
  QString errores() {
    QFile f(log());
    return f.open(QIODevice::ReadOnly) ? QString::fromLatin1(f.readAll()) : QString();
  }

 private:
  QString log() const { return rutas.enPrograma(q("Err_20261124.log")); }
  Acto acto_;
};

struct Plan : PlanFallas {
  Plan() {
    cuenta = {};
    catalogo = false;
  }
};

// clang-format off
const struct { Acto acto; const char* sentencia; bool bien; const char *linea, *caja, *log; } kCasos[] = {
    {Primera, "SET LANGUAGE", true, "", "No se pudo realizar la operación de cambio de Idioma", ""},
    {Primera, "SELECT dFechSincro", false, "", "", ""},
    {Primera, "cUndmedid, vDscundmd, vDscCrta FROM", false, "", "", ""},
    {Primera, "INSERT INTO UNIDADMEDIDA", true, "No se pudo insertar UM de código: UND", "", ""},
    {Primera, "A.bswCtrlStck", false, "", "", ""},
    {Primera, "SELECT cProdCode   FROM producto", false, "", "", ""},
    {Primera, "INSERT INTO PRODUCTO", true, "No se pudo insertar Artículo de código: 000101", "", ""},
    {Primera, "SELECT cProdCode, nProdPrecUnit", false, "", "", ""},
    {Primera, "CASE WHEN A.bFlagVenta", false, "", "", ""},
    {Primera, "COUNT(*) AS nFilas FROM ArticuloPrecioVenta", false, "", "", ""},
    {Primera, "nNumItem, nPrecioVtaNew FROM", false, "", "falla forzada - SELECT cCodArtic", ""},
    {Primera, "IN (SELECT cProdCode FROM Producto WHERE nActivo =0)", false, "", "", ""},
    {Primera, "* FROM Cliente", false, "", "", ""},
    {Primera, "INSERT INTO Cliente", true, "No se pudo insertar Cliente de código: 5", "", ""},
    {Primera, "* FROM Tarjeta", false, "", "", ""},
    {Primera, "INSERT INTO Tarjeta", true, "No se pudo insertar Tarjeta de número: 00000005", "", ""},
    {Primera, "SELECT FECHA = GETDATE()", false, "", "", ""},
    {Primera, "UPDATE Sincronizacion", false, "", "", ""},
    {Cambios, "MAX(dFechModi) AS dUltima FROM Cliente", false, "", "", ""},
    {Cambios, "UPDATE UNIDADMEDIDA", true, "No se pudo actualizar UM de código: UND", "", ""},
    {Cambios, "UPDATE PRODUCTO SET sProdDesc", true, "No se pudo actualizar Artículo de código: 1234567", "", ""},
    {Cambios, "UPDATE PRODUCTO SET nProdPrecUnit", true, "No se pudo actualizar Artículo de código: 000101", "", ""},
    {Cambios, "SET nActivo = 0", true, "No se pudo inhabilitar Artículo de código: 206", "", ""},
    {Cambios, "where cProdCode = 206", false, "", "", ""},
    {Cambios, "UPDATE Cliente SET", true, "No se pudo actualizar Cliente de código: 5", "", ""},
    {Cambios, "UPDATE Tarjeta SET", true, "No se pudo actualizar Tarjeta de número: 00000005", "", ""},
    {Enviar, "select iCierreCaja", false, "", "Error", ""},
    {Enviar, "select * from CabeceraZ", false, "", "", ""},
    {Enviar, "spr_insertar_cabecera_z1", false, "", "El servidor central dejó de responder.",
     "spr_insertar_cabecera_z1"},
    {Enviar, "Operacion WHERE cOperFlagAbierto = 0  AND", false, "", "", ""},
    {Enviar, "FROM  Cuentacte", false, "", "", ""},
    {Enviar, "ISNULL(MAX(cOperId),0) + 1", false, "", "", ""},
    {Enviar, "INSERT INTO Operacion (", true, "", "", "No se pudo insertar la operacion de Codigo: 1"},
    {Enviar, "UPDATE OPERACION SET", true, "No se pudo insertar en el Servidor la Operación de código: 1", "", ""},
    {Enviar, "INSERT INTO TDETALLEZ1", true, "Se insertó en el Servidor la Operación de código: 1", "", ""},
    {Enviar, "OperacionParalela WHERE cOperFlagAbierto= 0", false, "", "", ""},
    {Enviar, "INSERT INTO OperacionParalela (", true,
     "No se pudo insertar en el Servidor la Operación Paralela de código: 1",
     "", "No se pudo insertar la operacion Paralela de Codigo: 1"},
    {Enviar, "DELETE FROM operacionparalelaproducto", false, "", "", ""},
    {Enviar, "INSERT INTO OperacionParalelaProducto (", true,
     "No se pudo insertar en el Servidor la Operación Paralela de código: 1", "", ""},
    {Enviar, "UPDATE OPERACIONParalela SET", true,
     "No se pudo insertar en el Servidor la Operación Paralela de código: 1", "", ""},
    {Enviar, "SELECT IdZ,Caja,CantidadTotal", true, "Registrando procesamiento de movimientos de ventas", "", ""},
    {Enviar, "INSERT INTO CabeceraZ", true, "Registrando procesamiento de movimientos de ventas", "",
     "Sincronizar - CabeceraZ: "},
    {Enviar, "INSERT INTO DetalleZ", true, "", "", "Sincronizar - CabeceraZ: "},
    {Enviar, "spr_agrupar_z1", true, "", "", "Sincronizar - dbo.spr_agrupar_z1"},
    {Enviar, "spr_inserta_sincronizacion", true, "", "", "Sincronizar - dbo.spr_inserta_sincronizacion"},
    {Enviar, "SELECT distinct TOP 8", false, "", "", ""},
    {Enviar, "INSERT INTO OPERACIONPARALELAPRODUCTOHIST", false, "",
     "falla forzada - INSERT INTO OPERACIONPARALELA", ""},
    {Enviar, "DELETE FROM OPERACION_HISTORICO", false, "", "falla forzada - DELETE FROM OPERACION_HISTORICO", ""},
    {Reprocesar, "spr_limpiar_caja_dia", true, "", "No se pudo reprocesar el día; en el servidor queda como estaba",
     ""},
    {Reprocesar, "INSERT INTO Operacion (", true, "", "",
     "Error. No se pudo INSERTAR Operacion. sOperid:1;sOperCode1;sSQL:"},
    {Reprocesar, "INSERT INTO OperacionParalela (", true, "", "", "No se pudo insertar OP con cOperCOde:1;"},
    {Reprocesar, "DELETE FROM operacionparalelaproducto", true, "", "", "No se puedo DELETE OPP. cOperCOde:1;"},
    {Reprocesar, "INSERT INTO OperacionParalelaProducto (", true, "", "", "No se puedo insertar OPP. cOperCOde:1;"},
};
// clang-format on

}  // namespace

TEST(Palabras, EveryFailureIsTold) {
  QStringList sentencias[4];
  for (const Acto acto : {Primera, Cambios, Enviar, Reprocesar}) {
    Plan plan;
    Caja p(plan, acto);
    (void)p.hacer();
    sentencias[acto] = plan.sentencias;
  }
  for (const auto& c : kCasos) {
    SCOPED_TRACE(c.sentencia);
    int n = 0;
    while (n < sentencias[c.acto].size() && !sentencias[c.acto][n].contains(q(c.sentencia))) ++n;
    ASSERT_LT(n, sentencias[c.acto].size());
    Plan plan;
    Caja p(plan, c.acto);
    plan.armar(n + 1);
    const Corrida r = p.hacer();
    EXPECT_EQ(c.bien, r.bien);
    if (!c.bien) {
      EXPECT_EQ(q("Hubieron errores en la sincronización"), r.etiqueta);
      EXPECT_EQ(r.etiqueta, r.titulo);
    }
    EXPECT_TRUE(!*c.linea || r.lineas.contains(q(c.linea))) << qPrintable(r.lineas.join(u'\n'));
    QStringList cajas;
    for (const auto& caja : p.persona().vistas) cajas << caja.texto;
    EXPECT_TRUE(cajas.join(u'\n').contains(q(c.caja))) << qPrintable(cajas.join(u'\n'));
    EXPECT_TRUE(p.errores().contains(q(c.log))) << qPrintable(p.errores());
  }
}

TEST(Palabras, TheBarAndTheHeadingsOfAWholeRun) {
  Plan plan;
  for (const bool maestros : {true, false}) {
    Caja p(plan, Primera);
    FrmUpdt v(p);
    QStringList pasos;
    int barra = 0;
    v.alCambiar = [&] {
      const QString linea = v.lstLog.empty() ? QString() : v.lstLog.back();
      const bool titulo = !linea.isEmpty() && !linea.contains(q(": ")) && (pasos.isEmpty() || !pasos.contains(linea));
      if (titulo) pasos << linea;
      if (v.prgBar > barra) pasos << QString::number(barra = v.prgBar);
    };
    p.ses.pbSincronizaMaestros = maestros;
    EXPECT_TRUE(Sincronizar(p, v));
    const QString traida = q("Sincronizando Unidades de Medida|5|10|Sincronizando Articulos|20|30|"
                             "Desactivando / Activando Articulos|40|Sincronizando Clientes|50|60|"
                             "Sincronizando Tarjetas|65|70"),
                  envio = q("|Sincronizando Operaciones|85|Sincronizando Operaciones Paralelas|Sincronizando los Z|100|"
                            "Registrando procesamiento de movimientos de ventas|"
                            "Depurando transacciones Historicas|Eliminando operaciones Históricas");
    EXPECT_EQ((maestros ? traida : q("70")) + envio, pasos.join(u'|'));
  }
}

TEST(Palabras, TheLogOfAReprocess) {
  Plan plan;
  Caja p(plan, Reprocesar);
  EXPECT_EQ(QStringList{q("Sincronizando Operaciones Paralelas")}, p.hacer().lineas);
  for (const char* linea : {"Sincronizando Operacion...", "Operacion INSERTADA. sOperid:1;sOperCode1;",
                            "Se insertaron OPP con cOperCOde:1;",
                            "Reproceso. Caja:00001;Fecha:20/11/2026;Operaciones:1;Paralelas:2;Sin enviar:0;"}) {
    EXPECT_TRUE(p.errores().contains(q(linea))) << qPrintable(p.errores());
  }
}

// A document that the accounts hold is marked and stays away, whichever kind it is.
TEST(Palabras, APostedDocumentIsToldAndNotSent) {
  Plan plan;
  Caja p(plan, Enviar);
  for (const char* sql : {"INSERT INTO Cuentacte (cSerieDoc, cNroDoc, cCodCaja) VALUES ('001', '000001', '00001')",
                          "INSERT INTO Cuentacte (cSerieDoc, cNroDoc, cCodCaja) VALUES ('OC1', '000001', '00001')"}) {
    p.ejecuta(p.central(), q(sql));
  }
  EXPECT_TRUE(p.hacer().bien);
  EXPECT_EQ(q("0"), p.enCentral("SELECT COUNT(*) FROM Operacion"));
  EXPECT_EQ(q("2"), p.enCentral("SELECT cOperCode FROM OperacionParalela"));
  EXPECT_EQ(q("0/0/0"), p.porEnviar());
  for (const char* cual : {"El documento 001-000001 ya", "El documento OC1-000001 ya"}) {
    EXPECT_TRUE(p.errores().contains(q(cual) + q(" existe en la base de datos."))) << qPrintable(p.errores());
  }
}
