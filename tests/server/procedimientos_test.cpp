#include "platform/sql/procedimientos.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "platform/text/fecha.h"
#include "servidores.h"

namespace {

QString u8(const char* t) { return QString::fromUtf8(t); }

// An empty central database in memory.
class Central final : public AccesoMotor {
 public:
  Central() {
    sqlite3_open(":memory:", &db_);
    for (const QString& s : tablasDelCentral()) EXPECT_FALSE(ejecutar(s));
  }
  ~Central() override { sqlite3_close(db_); }
  std::optional<ErrorBD> consultar(const QString& sql, const QVariantList& valores, Recordset& rs) override {
    sqlite3_stmt* s = nullptr;
    int r = sqlite3_prepare_v2(db_, sql.toUtf8().constData(), -1, &s, nullptr);
    for (int i = 0; i < valores.size() && r == SQLITE_OK; ++i) {
      r = sqlite3_bind_text(s, i + 1, valores[i].toString().toUtf8().constData(), -1, SQLITE_TRANSIENT);
    }
    QStringList campos;
    std::vector<std::vector<QVariant>> filas;
    for (int i = 0; i < sqlite3_column_count(s); ++i) campos << QString::fromUtf8(sqlite3_column_name(s, i));
    while (r == SQLITE_OK && sqlite3_step(s) == SQLITE_ROW) {
      std::vector<QVariant> fila;
      for (int i = 0; i < campos.size(); ++i) {
        const bool nada = sqlite3_column_type(s, i) == SQLITE_NULL;
        fila.push_back(nada ? QVariant() : QVariant(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(s, i)))));
      }
      filas.push_back(fila);
    }
    r = sqlite3_finalize(s) | r;
    rs.llenar(campos, filas);
    if (r == SQLITE_OK) return {};
    return ErrorBD{kErrorSentencia, r, QString::fromUtf8(sqlite3_errmsg(db_))};
  }
  std::optional<ErrorBD> ejecutar(const QString& sql, const QVariantList& valores = {}, qint64* = nullptr) override {
    Recordset rs;
    return consultar(sql, valores, rs);
  }
  QDateTime ahora() const override { return QDateTime(QDate(2026, 11, 24), QTime(22, 15)); }

  // What a call gives: the cells of its rows, or the words of its failure.
  std::string llama(const char* nombre, const QVariantList& argumentos) {
    const auto todos = procedimientosDeServidores();
    Recordset rs;
    const auto error = (*todos->procedimiento(u8(nombre)))(*this, argumentos, rs);
    return error ? error->descripcion.toStdString() : celdas(rs);
  }
  std::string filas(const char* sql) {
    Recordset rs;
    const auto error = consultar(u8(sql), {}, rs);
    return error ? error->descripcion.toStdString() : celdas(rs);
  }

 private:
  static std::string celdas(const Recordset& rs) {
    QStringList lineas;
    for (const auto& fila : rs) {
      QStringList t;
      for (int i = 0; i < rs.campos().size(); ++i) t << (fila[i].isNull() ? u8("Null") : fila[i].toString());
      lineas << t.join(u'|');
    }
    return lineas.join(u'\n').toStdString();
  }
  sqlite3* db_ = nullptr;
};

TEST(Procedimientos, EachClosingHasAHeadOfItsOwn) {
  Central c;
  EXPECT_EQ("1", c.llama("spr_insertar_cabecera_z1", {u8("00001"), qint64(-1)}));
  EXPECT_EQ("2", c.llama("SPR_Insertar_Cabecera_Z1", {u8("00002"), qint64(-2)}));
  EXPECT_EQ("1|00001|-1|2026-11-24 22:15:00\n2|00002|-2|2026-11-24 22:15:00",
            c.filas("SELECT idZ1, cCajaCodi, nidEstado, dFecha FROM TCABECERAZ1"));
}

TEST(Procedimientos, AClosingThatIsBegunAgainDropsWhatItLeft) {
  Central c;
  for (const char* caja : {"00001", "00002"}) c.llama("spr_insertar_cabecera_z1", {u8(caja), qint64(-1)});
  c.llama("spr_insertar_cabecera_z1", {u8("00001"), qint64(-2)});
  c.filas("INSERT INTO TDETALLEZ1 (nidZ1) VALUES (1), (1), (2), (3)");
  EXPECT_EQ("4", c.llama("spr_insertar_cabecera_z1", {u8("00001"), qint64(-1)}));
  EXPECT_EQ("2|00002|-1\n3|00001|-2\n4|00001|-1", c.filas("SELECT idZ1, cCajaCodi, nidEstado FROM TCABECERAZ1"));
  EXPECT_EQ("2\n3", c.filas("SELECT nidZ1 FROM TDETALLEZ1"));
}

TEST(Procedimientos, DetailIsGroupedAndAveraged) {
  Central c;
  c.filas("INSERT INTO TDETALLEZ1 (nidZ1, cCajaCodi, dOperFech, cAlmaCode, cdocTipo, cProdCode, nProdCant, nMonto) VALUES "
          "(1,'00001','2026-11-24 10:00:00','01','02','000101',2,20), (1,'00001','2026-11-24 11:00:00','01','02','000101',1,13),"
          "(1,'00001','2026-11-24 11:00:00','01','01','000101',1,12), (1,'00001','2026-11-24 11:00:00','01',NULL,'000102',1,5),"
          "(1,'00001','2026-11-24 12:00:00','01',NULL,'000102',-1,-5), (2,'00001','2026-11-24 10:00:00','01','02','000101',9,9)");
  EXPECT_EQ("", c.llama("spr_promediar_montos_z1", {qint64(1)}));
  EXPECT_EQ("000101|11.25\n000102|Null", c.filas("SELECT DISTINCT cProdCode, nPrecioProm FROM TDETALLEZ1 WHERE nidZ1 = 1"));
  EXPECT_EQ("", c.llama("spr_agrupar_z1", {qint64(1)}));
  EXPECT_EQ("1|02|000101|3.0|33.0\n1|01|000101|1.0|12.0\n1|Null|000102|0.0|0.0\n2|02|000101|9.0|9.0",
            c.filas("SELECT nidZ1, cdocTipo, cProdCode, nProdCant, nMonto FROM TDETALLEZ1"));
}

TEST(Procedimientos, CleaningTakesOneDayOfOneTill) {
  Central c;
  c.filas("INSERT INTO Operacion (cOperID, cCajaCodi, dOperFech) VALUES (1,'00001','2026-11-23 23:59:59'),"
          "(2,'00001','2026-11-24 00:00:00'), (3,'00001','2026-11-24 23:59:59'), (4,'00001','2026-11-25 00:00:00')");
  c.filas("INSERT INTO Operacion (cOperID, cCajaCodi, dOperFech) VALUES (1,'00002','2026-11-24 10:00:00')");
  c.filas("INSERT INTO OperacionParalela (cOperCode, cCajaCodi, dOperFech) VALUES (7,'00001','2026-11-24 10:00:00'),"
          "(8,'00001','2026-11-25 10:00:00'), (7,'00002','2026-11-24 10:00:00')");
  c.filas("INSERT INTO OperacionParalelaProducto (cOperCode, cCajaCodi) VALUES (7,'00001'), (8,'00001'), (7,'00002')");
  EXPECT_EQ("«31/31/2026» no es una fecha.", c.llama("spr_limpiar_caja_dia", {u8("00001"), u8("31/31/2026")}));
  EXPECT_EQ("", c.llama("spr_limpiar_caja_dia", {u8("00001"), u8("24/11/2026")}));
  EXPECT_EQ("00001|1\n00001|4\n00002|1", c.filas("SELECT cCajaCodi, cOperID FROM Operacion ORDER BY 1, 2"));
  EXPECT_EQ("00001|8\n00002|7", c.filas("SELECT cCajaCodi, cOperCode FROM OperacionParalela ORDER BY 1, 2"));
  EXPECT_EQ("00001|8\n00002|7", c.filas("SELECT cCajaCodi, cOperCode FROM OperacionParalelaProducto ORDER BY 1, 2"));
}

// Two facturas in soles, one of them half paid, a third in dollars that is paid in its own currency, a fourth voided.
TEST(Procedimientos, TheAccountsListWhatIsOpen) {
  Central c;
  c.filas("INSERT INTO TipoCredito VALUES ('01','30 DIAS')");
  c.filas("INSERT INTO Venta01 (cCodVta, TipoDoc, cSerieDoc, NroDoc, cCodCaja, cClienteCode, IdLocal, DscCliente, TotVta, "
          "TotVtaUSD, cCodMoneda, cCodTipoCredito, fechaemision, FechaAnulacion, bLiquidado) VALUES "
          "(1,'01','001','000001','00001','00000005',1,'ANA',100,33.33,'N','01','2026-11-20 00:00:00',NULL,1),"
          "(2,'01','001','000002','00001','00000005',1,'ANA',60,20,'N','01','2026-11-21 00:00:00',NULL,0),"
          "(3,'01','001','000003','00001','00000006',2,'LUZ',301,100,'E','01','2026-11-22 00:00:00',NULL,0),"
          "(4,'01','001','000004','00001','00000005',1,'ANA',10,3,'N','01','2026-11-22 00:00:00','2026-11-23 00:00:00',0)");
  c.filas("INSERT INTO Pagos (TipoDoc, cSerieDoc, NroDoc, Monto, Moneda, nTipoCambio, FechaAnulacion) VALUES "
          "('01','001','000001',40,'N',3,NULL), ('01','001','000001',60,'N',3,'2026-11-23 00:00:00'),"
          "('01','001','000003',100,'E',3,NULL)");
  EXPECT_EQ("01|001|000001|2026-11-20 00:00:00|SUR|ANA|00000005|1|SOLES|100.0|33.33|60.0|20.0\n"
            "01|001|000002|2026-11-21 00:00:00|SUR|ANA|00000005|1|SOLES|60.0|20.0|60.0|20.0",
            c.llama("usp_sel_ListadoDocumentosPendientesPago", {u8("01")}));
  EXPECT_EQ("2|00001|01|001|000002|00000005|1|SUR|ANA|Null|60.0|20.0|N|30 DIAS|2026-11-21 00:00:00\n"
            "3|00001|01|001|000003|00000006|2|NORTE|LUZ|Null|301.0|100.0|E|30 DIAS|2026-11-22 00:00:00",
            c.llama("usp_sel_ListadoDocumentosPendientesNC", {u8("01")}));
  EXPECT_EQ("3|01|FACTURA|001|000003|2026-11-22 00:00:00|DOLARES|301.0|100.0|1.0|0.0",
            c.llama("usp_sel_CtaCtexCliente", {qint64(6), qint64(2)}));
}

TEST(Procedimientos, StockIsTheLastCountLessWhatWasSoldSince) {
  Central c;
  c.filas("INSERT INTO Articulo (cCodartic, vDscartic, cUndSalida, bSwActivo) VALUES ('000101','CAFE','UND',1),"
          "('000102','TORTA','UND',1), ('000103','FUERA','UND',0)");
  c.filas("INSERT INTO SaldoArticulo VALUES ('01','000101','2026-11-01 00:00:00',90), ('01','000101','2026-11-20 00:00:00',50)");
  c.filas("INSERT INTO Operacion (cOperID, cCajaCodi, dOperFech, cAlmaCode, cDocTipo, cDocSerie, cProdCode, nProdCant, "
          "nProdPrecUnit, cOperFlagAnula) VALUES (1,'00001','2026-11-24 09:00:00','01','02','001','000101',3,2,0),"
          "(2,'00001','2026-11-24 10:00:00','01','02','001','000101',4,2,0), (3,'00001','2026-11-24 10:00:00','01','02','001',"
          "'000101',9,2,1), (4,'00001','2026-11-24 10:00:00','01','02','001','0',1,0,0), "
          "(5,'00001','2026-11-25 10:00:00','01','02','001','000101',8,2,0)");
  for (int vez = 0; vez < 2; ++vez) EXPECT_EQ("", c.llama("zankebmovivnta_reprocesa", {u8("24/11/2026")}));
  EXPECT_EQ("2026-11-24 00:00:00|00001|01|02|001|000101|7.0|14.0", c.filas("SELECT * FROM ZANKEBMOVIVNTA"));
  const auto saldos = [&](const char* hasta) {
    return c.llama("usp_Log_Saldos", {u8("20261024"), u8(hasta), u8("*"), u8(""), qint64(0), qint64(0), u8("01")});
  };
  EXPECT_EQ("CAFE|UND|000101|50.0|7.0\nTORTA|UND|000102|0|0", saldos("20261124"));
  EXPECT_EQ("CAFE|UND|000101|90.0|0\nTORTA|UND|000102|0|0", saldos("20261115"));
  EXPECT_EQ("«x» no es una fecha.", saldos("x"));
  EXPECT_EQ("", c.llama("sp_send_cdosysmail", {u8("a"), u8("b;c"), u8("Error"), u8("Detalle")}));
  EXPECT_EQ("2026-11-24 22:15:00|a|b;c|Error|Detalle", c.filas("SELECT * FROM CorreoSalida"));
}

TEST(Procedimientos, TheRestAndWrongCalls) {
  Central c;
  EXPECT_EQ("", c.llama("spr_inserta_sincronizacion", {u8("00001")}));
  EXPECT_EQ("00001|2026-11-24 22:15:00", c.filas("SELECT * FROM SincronizacionCaja"));
  EXPECT_EQ("El procedimiento spr_agrupar_z1 lleva 1 argumentos y recibió 0.", c.llama("spr_agrupar_z1", {}));

  const auto igv = procedimientosDeServidores()->funciones().value(u8("fnretornarigv"));
  QVariant valor;
  EXPECT_FALSE(igv(c, {}, valor));
  EXPECT_TRUE(valor.isNull()) << "no rate, no answer";
  c.filas("INSERT INTO parametro (cCodParam, nmonto1) VALUES ('IGV', 18)");
  EXPECT_FALSE(igv(c, {}, valor));
  EXPECT_DOUBLE_EQ(0.18, valor.toDouble());
}

}  // namespace
