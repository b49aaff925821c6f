#include "apoyo/casos.h"
#include "platform/sql/motor_sqlite.h"
#include "servidores.h"
#include "sql_mutar.h"
#include "sql_sentencias.h"
#include "store/tablas.h"

namespace {

// Every text of the statement that is not read as a date or a number stands in the rewritten one; as a name when it
// was an alias.
void literalesVivos(const QString& sql, Edicion& e) {
  const QString nueva = e.texto(true);
  if (e.incompleta()) {
    EXPECT_EQ(sql, nueva);
    return;
  }
  QStringList quedan;
  for (const Token& t : separar(nueva, Dialecto::TSql)) {  // the engine's quotes
    if (!t.abierto && (t.tipo == TipoToken::Texto || t.tipo == TipoToken::NombreCitado)) quedan << contenido(t);
  }
  for (const Literal& l : e.literales()) {
    const Token& t = e.tokens()[l.token];
    if (t.tipo != TipoToken::Texto || t.abierto || l.lectura != Lectura::TalCual) continue;
    EXPECT_TRUE(quedan.removeOne(contenido(t))) << "lost " << contenido(t).toStdString() << "\n  in  "
                                                << sql.toStdString() << "\n  out " << nueva.toStdString();
  }
}

// Without a rule's work the text comes out as it went in.
TEST(Edicion, WithoutEditsIsByteForByte) {
  for (const char* base : {"local", "central", "cliente"}) {
    for (const QString& s : leerSentencias(base)) {
      for (const Dialecto d : {Dialecto::Jet, Dialecto::TSql}) {
        const QString conTodo = s + u8("  -- fin 'x\t\n /* y */ ");
        if (d == Dialecto::TSql || !conTodo.contains(u'#')) {
          EXPECT_EQ(conTodo, Edicion(conTodo, d, kPalabrasSqlite).texto(true));
        }
      }
    }
  }
}

TEST(Edicion, WhatNoRuleKnowsPassesUnchanged) {
  for (const auto& c : leerCasos("platform/sin_regla")) {
    Banco b(c.si("jet"), c.si("jet") ? tablasDelPuesto() : tablasDelCentral());
    EXPECT_EQ(c["sql"], b.cnn.traducir(c["sql"])) << c.donde();
  }
}

// What the walk makes of tables that it knows nothing of.
class SinTablas final : public Catalogo {
  Tabla leer(const QString&) const override { return {}; }
};

struct Lado {
  Lado(bool jet, const QStringList& tablas, const QStringList& lista, const OpcionesMotores& opciones)
      : d(jet ? Dialecto::Jet : Dialecto::TSql), sentencias(lista), b(jet, tablas) {
    for (const QString& s : lista) {
      if (s.trimmed().startsWith(u8("insert"), Qt::CaseInsensitive))
        (void)b.cnn.ejecutar(Sql::crudo(s));  // rows to ask for
    }
    ErrorBD error;
    motor = MotorSqlite::abrir(b.archivo(), d, 1000, opciones, std::make_shared<MemoriaDeFormas>(), error);
    if (!motor || motor->iniciar()) ADD_FAILURE() << error.descripcion.toStdString();
  }
  Dialecto d;
  QStringList sentencias;
  Banco b;
  std::unique_ptr<MotorSqlite> motor;
};

std::string volcado(const Recordset& rs, bool conOrden) {
  QStringList filas;
  for (const auto fila : rs) {
    QString t;
    for (int i = 0; i < rs.campos().size(); ++i) t += celdaComoTexto(fila[i]) + u'|';
    filas << t.remove(u'<').remove(u'>');  // the bare engine doesn't know which expressions are dates
  }
  if (!conOrden) filas.sort();  // the plans of the two may differ
  return filas.join(u'\n').toStdString();
}

// Bound literals answer as literals that stand in the statement.
void ligarNoCambia(const QString& sql, MotorSqlite& motor, const Recordset& ligada, qint64& vueltas) {
  vueltas = 0;
  Recordset escrita;
  if (sql.contains(u8("now"), Qt::CaseInsensitive)) return;
  if (motor.consultar(motor.traducir(sql), {}, escrita)) return;  // stopped for its length
  const bool conOrden = sql.contains(u8("order"), Qt::CaseInsensitive);
  EXPECT_EQ(volcado(escrita, conOrden), volcado(ligada, conOrden)) << sql.toStdString() << "\n"
                                                                   << motor.traducir(sql).toStdString();
}

// Mutated statements: no crash, no hang, an answer or an error, never a lost text.
TEST(Fuzz, MutatedStatementsNeverHarm) {
  const int cuantas = cuantasMutaciones(50'000, 1'000'000);
  Azar azar(semillaDeMutaciones(cuantas));
  qint64 vueltas = 0;
  OpcionesMotores opciones;
  opciones.procedimientos = procedimientosDeServidores();
  // One time for both answers, whatever second it is.
  opciones.ahora = [] { return QDateTime(QDate(2026, 11, 24), QTime(17, 5, 30)); };
  opciones.interrumpir = [&] { return ++vueltas > 200; };
  Lado lados[] = {{true, tablasDelPuesto(), leerSentencias("local"), opciones},
                  {false, tablasDelCentral(), leerSentencias("central"), opciones}};
  const SinTablas vacio;
  int contestadas = 0;
  for (int i = 0; i < cuantas && !testing::Test::HasFailure(); ++i) {
    Lado& l = lados[i % 2];
    Motor& motor = *l.motor;
    const QString sql = mutar(l.sentencias[hasta(azar, l.sentencias.size())], l.d, azar);
    SCOPED_TRACE(QStringLiteral("%1: %2").arg(i).arg(sql).toStdString());
    if (noSeMuta(sql)) continue;
    Edicion e(sql, l.d, kPalabrasSqlite);
    const Reescritura r = reescribir(e, vacio);
    if (!r.error) literalesVivos(sql, e);
    vueltas = 0;
    Recordset rs;
    rs.llenar({u8("x")}, {{QVariant(1)}});
    const auto error = motor.consultar(sql, rs);
    if (error) {
      EXPECT_TRUE(error->numero == kErrorSentencia || error->numero == kErrorGeneral);
      EXPECT_FALSE(error->descripcion.isEmpty());
      EXPECT_EQ(0, rs.RecordCount());
    } else {
      ++contestadas;
      if (sql.startsWith(u8("select"), Qt::CaseInsensitive)) ligarNoCambia(sql, *l.motor, rs, vueltas);
    }
    if (i % 1000 < 2) {  // what inserts have left would slow joins down
      ASSERT_FALSE(motor.deshacer());
      ASSERT_FALSE(motor.iniciar());
    }
  }
  EXPECT_GT(contestadas, cuantas / 20) << "mutations must not break all of them";
}

// Nesting deeper than any program writes ends in words, not in the end of the stack.
TEST(Fuzz, DeepNesting) {
  Banco b(true, tablasDelPuesto());
  for (const int n : {15, 1000, 20'000}) {
    for (const auto& [abre, cierra] : {std::pair{u8("("), u8(")")},
                                       {u8("IIF(1,("), u8("),0)")},
                                       {u8("-"), QString()},
                                       {u8("NOT "), QString()},
                                       {u8("(SELECT "), u8(")")},
                                       {u8("CASE WHEN "), u8(" THEN 1 END")}}) {
      Recordset rs;
      const auto e = b.cnn.consultar(Sql::crudo(u8("SELECT ") + abre.repeated(n) + u8("1") + cierra.repeated(n)), rs);
      EXPECT_EQ(n >= 1000, e.has_value()) << n << ' ' << abre.toStdString();
    }
  }
}

}  // namespace
