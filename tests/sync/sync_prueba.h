#pragma once
// A desk with closed days behind it, its synchronisation, and what lies in the central database afterwards.
#include <gtest/gtest.h>

#include "apoyo/otro_puesto.h"
#include "sync/sincronizar.h"
#include "sync/updt.h"

namespace prueba_sync {

inline QString q(const char* s) { return QString::fromUtf8(s); }

struct Muerto {};  // thrown where a kill strikes

// What a run has shown.
struct Corrida {
  bool bien = false;
  QStringList lineas;  // its newest ones
  QString titulo, etiqueta;
  int barraMaxima = 0;
};

inline Corrida sincronizar(Puesto& p, bool maestros = false, bool enLotes = true) {
  FrmUpdt v(p);
  v.enLotes = enLotes;
  Corrida c;
  v.alCambiar = [&] { c.barraMaxima = qMax(c.barraMaxima, v.prgBar); };
  p.ses.pbSincronizaMaestros = maestros;
  c.bien = Sincronizar(p, v);
  c.lineas = QStringList(v.lstLog.begin(), v.lstLog.end());
  c.titulo = v.Label1;
  c.etiqueta = v.lblEtiqueta;
  return c;
}

class CajaConDias : public PuestoPrueba {
 public:
  explicit CajaConDias(const Envolver& envolver = {}) : PuestoPrueba(envolver) {
    ejecuta(q("UPDATE Configuracion SET iCierreCaja = 6"));
    ejecuta(q("INSERT INTO Sincronizacion (dFechSincro) VALUES ('20/11/2026')"));
    persona().dejaPasar();
  }

  // A closed day of one boleta, one order, one advance payment.
  void diaCorto(const QString& fecha) {
    for (const QString& sql :
         {q("INSERT INTO Operacion (cOperCode, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit, dOperFech, cOperTipo, "
            "cCajaCodi, cDocTipo, cDocSerie, cDocCodigo, cOperFlagAbierto) VALUES (1, '01', 101, 2, 38, '%1 09:01', 1, "
            "'00001', '02', '001', 1, 0)"),
          q("INSERT INTO OperacionParalela (cOperCode, cOperTipo, dOperFech, nMontoSoles, cEstado, cCajaCodi, "
            "cFlagSincronizacion, cOperFlagAbierto, cDocTipo, cDocSerie, cDocCodigo) VALUES (1, 20, '%1 09:02', 38, "
            "'1', "
            "'00001', '0', 0, '10', 'OC1', 1)"),
          q("INSERT INTO OperacionParalela (cOperCode, cOperTipo, dOperFech, nMontoSoles, cEstado, cCajaCodi, "
            "cFlagSincronizacion, cOperFlagAbierto, cDocTipo, cDocSerie, cDocCodigo) VALUES (2, 22, '%1 09:03', 90, "
            "'1', "
            "'00001', '1', 0, '12', 'PA1', 1)"),
          q("INSERT INTO OperacionParalelaProducto (cAlmaCode, cOperCode, cProdCode, nProdCant, nProdPrecUnit) VALUES "
            "('01', 1, 101, 1, 38)")}) {
      ejecuta(sql.contains(u'%') ? sql.arg(fecha) : sql);
    }
    cerrarZ(fecha);
  }
  // A closed day: a boleta of two lines, a factura, a voided boleta, an order, a note on an advance payment, and a
  // voided order. Documents number up from `numero`, which is 10 a day.
  void dia(const QString& fecha, int numero) {
    const QString f = q("'%1 09:0%2'");
    EXPECT_FALSE(poCnnLocal.iniciar());
    const auto venta = [&](int n, int prod, double cant, double precio, int anulada = 0, int anula = 0) {
      const bool espejo = anula != 0;
      ejecuta(
          q("INSERT INTO Operacion (cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit, "
            "dOperFech, cOperTipo, cCajaCodi, cTurnoCodi, nDscto, cDocTipo, cDocSerie, cDocCodigo, cOperFlagAnula, "
            "cOperCodeAnula, cOperFlagAbierto) VALUES (%1, 'CAJERO', '', '01', %2, %3, %4, %5, 1, '00001', '01', 0, "
            "%6, %7, %8, 0)")
              .arg(numero + n)
              .arg(prod)
              .arg(cant)
              .arg(precio)
              .arg(f.arg(fecha).arg(n), espejo ? q("Null, Null") : q("'0%1', '001'").arg(n == 2 ? 1 : 2),
                   espejo ? q("Null") : QString::number(numero + n), q("%1, %2").arg(anulada).arg(anula)));
    };
    venta(1, 101, 2, 38);
    venta(1, 206, 1, 3);
    venta(1, 0, 1, -1);
    venta(2, 101, 1, 38);
    venta(3, 303, 1, 18.5, 1);
    venta(4, 303, -1, 18.5, 1, numero + 3);
    const auto paralela = [&](int n, int tipo, int doc, const char* serie, double monto, int relacion, int anulada) {
      ejecuta(
          q("INSERT INTO OperacionParalela (cOperCode, cOperTipo, dOperFech, nTarjNumb, nMontoSoles, sGlosa, cEstado, "
            "cCajaCodi, cTurnoCodi, cUserDesc, cFlagSincronizacion, cOperCodeRela, cOperCodeAnul, cOperFlagAbierto, "
            "cDocTipo, cDocSerie, cDocCodigo) VALUES (%1, %2, %3, '', %4, 'ANA', '%5', '00001', '01', 'CAJERO', '0', "
            "%6, %7, 0, '%8', '%9', %10)")
              .arg(numero + n)
              .arg(tipo)
              .arg(f.arg(fecha).arg(n))
              .arg(monto)
              .arg(anulada ? 0 : 1)
              .arg(relacion)
              .arg(anulada)
              .arg(doc)
              .arg(q(serie))
              .arg(numero + n));
    };
    const auto linea = [&](int n, int prod, double cant, double precio) {
      ejecuta(
          q("INSERT INTO OperacionParalelaProducto (cAlmaCode, cOperCode, cProdCode, nProdCant, nProdPrecUnit) VALUES "
            "('01', %1, %2, %3, %4)")
              .arg(numero + n)
              .arg(prod)
              .arg(cant)
              .arg(precio));
    };
    paralela(1, 20, 10, "OC1", 57, 0, 0);
    linea(1, 101, 1, 38);
    linea(1, 206, 2, 9.5);
    paralela(2, 22, 12, "PA1", 100, 0, 0);
    paralela(3, 21, 11, "NC1", 3, numero + 2, 0);
    linea(3, 206, 1, 3);
    paralela(4, 20, 10, "OC1", 38, 0, numero + 5);
    linea(4, 101, 1, 38);
    paralela(5, 20, 10, "OC1", 38, 0, 0);
    ejecuta(q("UPDATE OperacionParalela SET cEstado = '0' WHERE cOperCode = %1").arg(numero + 5));
    cerrarZ(fecha);
    EXPECT_FALSE(poCnnLocal.confirmar());
  }
  void cerrarZ(const QString& fecha) {
    const auto maximo = [&](const char* sql) { return filas(q(sql)); };
    const QString ini = maximo("SELECT IIF(ISNULL(MAX(cOperIdFin)), 0, MAX(cOperIdFin)) FROM CabeceraZ"),
                  iniP = maximo("SELECT IIF(ISNULL(MAX(cOperIdPFin)), 0, MAX(cOperIdPFin)) FROM CabeceraZ"),
                  id = maximo("SELECT IIF(ISNULL(MAX(IdZ)), 0, MAX(IdZ)) + 1 FROM CabeceraZ");
    ejecuta(q("INSERT INTO CabeceraZ (IdZ, Caja, CantidadTotal, MontoTotal, Fecha, RangoTKBOL, RangoTKFAC, CodigoRep, "
              "cOperIdIni, cOperIdFin, cOperIdPIni, cOperIdPFin) VALUES (%1, '%7', 4, 117, '%2', 'TICKET', 'TICKET', "
              "'Código', %3, %4, %5, %6)")
                .arg(id, fecha, ini, maximo("SELECT MAX(cOperID) FROM Operacion"), iniP,
                     maximo("SELECT MAX(cOperCode) FROM OperacionParalela"), ses.psCaja));
    ejecuta(q("INSERT INTO DetalleZ (IdZ, Caja, nItem, CodProd, DscProd, Cantidad) VALUES (%1, '%2', 1, 101, 'QUESO "
              "D''AMBO', 3)")
                .arg(id, ses.psCaja));
  }

  Conexion& central() {
    EXPECT_TRUE(poCnnCentral.abierta() || poDBAdmin.AbrirBD(poCnnCentral, ses.psConexionCentral));
    return poCnnCentral;
  }
  QString enCentral(const char* sql) { return filas(central(), q(sql)); }
  // All that the desk has sent, whatever the order in which it came.
  QString todoElCentral() {
    QString todo;
    for (const char* sql :
         {"SELECT cOperCode, cProdCode, nProdCant, nProdPrecUnit, dOperFech, cOperFlagAnula, cOperCodeAnula, cDocTipo, "
          "cDocSerie, cDocCodigo FROM Operacion WHERE cCajaCodi = '%1' ORDER BY 1, 2",
          "SELECT cOperCode, cOperTipo, nMontoSoles, cEstado, cOperCodeRela, cOperCodeAnul, cDocTipo, cDocCodigo FROM "
          "OperacionParalela WHERE cCajaCodi = '%1' ORDER BY 1",
          "SELECT cOperCode, cProdCode, nProdCant, nProdPrecUnit FROM OperacionParalelaProducto WHERE cCajaCodi = '%1' "
          "ORDER BY 1, 2",
          "SELECT IdZ, MontoTotal, cOperIdFin FROM CabeceraZ WHERE Caja = '%1' ORDER BY 1",
          "SELECT IdZ, nItem, CodProd, DscProd FROM DetalleZ WHERE Caja = '%1' ORDER BY 1",
          "SELECT cdocTipo, cProdCode, SUM(nProdCant), SUM(nMonto) FROM TDETALLEZ1 WHERE cCajaCodi = '%1' GROUP BY "
          "cdocTipo, cProdCode ORDER BY 1, 2"}) {
      if (!todo.isNull()) todo += q("\n-\n");
      todo += filas(central(), q(sql).arg(ses.psCaja));
    }
    return todo;
  }
  // What has moved to the history, and how much has not.
  QString viejas() {
    QString todo;
    for (const char* sql : {"SELECT cOperCode, cProdCode, cDocTipo FROM Operacion_Historico ORDER BY 1, 2",
                            "SELECT cOperCode FROM OperacionParalela_Historico ORDER BY 1",
                            "SELECT cOperCode, cProdCode FROM OperacionParalelaProductoHist ORDER BY 1, 2",
                            "SELECT COUNT(*) FROM Operacion", "SELECT COUNT(*) FROM OperacionParalela",
                            "SELECT COUNT(*) FROM OperacionParalelaProducto"}) {
      todo += filas(q(sql)) + q("\n-\n");
    }
    return todo;
  }
  // From now on its central database is that one.
  void conCentral(const QString& cadena) {
    poCnnCentral.cerrar();
    ses.psConexionCentral = cadena;
  }
  // Rows of the store that the centre should hold and that are not marked; and Z rows that wait.
  QString porEnviar() {
    return filas(
               q("SELECT COUNT(*) FROM Operacion WHERE cProdCode <> 0 AND cOperFlagAbierto = 0 AND cFlagSincronizacion "
                 "<> '1'")) +
           u'/' +
           filas(q("SELECT COUNT(*) FROM OperacionParalela WHERE cOperCodeAnul = 0 AND cOperFlagAbierto = 0 AND "
                   "cFlagSincronizacion <> '1' AND cEstado <> '0'")) +
           u'/' + filas(q("SELECT COUNT(*) FROM CabeceraZ WHERE bFlagSincro = 0"));
  }
};

// An article there with its line, its supplier and its price, which is its second one.
inline void articuloCentral(CajaConDias& p, const char* codigo, const char* nombre, double precio) {
  p.ejecuta(p.central(),
            q("INSERT INTO Articulo (cCodartic, vDscartic, cCodCatal, vDscartCt, cCodProve, CCODLINEA, nFlagServ, "
              "dFechCrea, dFechModi) VALUES ('%1', '%2', 'C%1', '%2', 'P1', '01', 1, '20261101', '20261101')")
                .arg(q(codigo), q(nombre)));
  p.ejecuta(p.central(), q("INSERT INTO ArticuloPrecioVenta VALUES ('%1', 1, 0.5)").arg(q(codigo)));
  p.ejecuta(p.central(), q("INSERT INTO ArticuloPrecioVenta VALUES ('%1', 2, %2)").arg(q(codigo)).arg(precio));
}

// What a centre has for its desks; two customers share a code, one article's code is no number.
inline void maestros(CajaConDias& p) {
  for (const char* sql :
       {"INSERT INTO UnidadMedida VALUES ('UND', 'UNIDAD', 'UND.', '20261101', '20261101')",
        "INSERT INTO LINEA VALUES ('01', 'QUESOS')", "INSERT INTO Proveedor VALUES ('P1', 'GRANJA D''ORO')",
        "INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName, iTipo, nPuntCant, dFechCrea, dFechModi) VALUES "
        "(5, 1, 'O''HIGGINS', 'ANA', 1, 20, '20261101', '20261101')",
        "INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, iTipo, dFechCrea, dFechModi) VALUES (5, 2, 'RÍOS', 2, "
        "'20261101', '20261101')",
        "INSERT INTO Tarjeta (cClieCode, IdLocal, nTarjNumb, dEmisDate, dFechCrea, dFechModi) VALUES (5, 1, "
        "'00000005', '20261102', '20261101', '20261101')"}) {
    p.ejecuta(p.central(), q(sql));
  }
  articuloCentral(p, "000101", "QUESO", 38);
  articuloCentral(p, "000206", "AGUA", 3);
  articuloCentral(p, "1234567", "LARGO", 1);
  articuloCentral(p, "00X", "NO ES NUMERO", 1);
}

// The next day there: all kinds of change.
inline void cambiosDeMaestros(CajaConDias& p) {
  articuloCentral(p, "000301", "NUEVO", 9);
  for (const char* sql :
       {"UPDATE UnidadMedida SET vDscundmd = 'UNIDADES', dFechModi = '20261125'",
        "UPDATE Articulo SET dFechCrea = '2026-11-25 08:00', dFechModi = '2026-11-25 09:00' WHERE cCodartic IN "
        "('000301', '00X')",
        "INSERT INTO ArticuloPrecioVenta VALUES ('000101', 3, 40)",  // its article did not change
        "DELETE FROM Articulo WHERE cCodartic = '000206'",
        "INSERT INTO Cliente (cClieCode, IdLocal, iTipo, dFechCrea, dFechModi) VALUES (6, 1, 1, '2026-11-25 08:00', "
        "'2026-11-25 09:00')",
        "UPDATE Cliente SET sClieApel = 'PAZ', dFechModi = '20261125' WHERE IdLocal = 2",
        "UPDATE Tarjeta SET cTarjActi = 0, dFechModi = '20261125'"}) {
    p.ejecuta(p.central(), q(sql));
  }
}

}  // namespace prueba_sync
