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
