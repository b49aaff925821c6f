#include "duelo.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

QString conexionLocal(const QString& archivo) {
  return QStringLiteral("driver={Microsoft Access Driver (*.mdb)};DBQ=") + archivo;
}

QByteArray contenido(const QString& archivo) {
  QFile f(archivo);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

struct Tiempos {
  std::vector<double> pared, procesador;

  void tomar(const std::function<void()>& f) {
    QElapsedTimer reloj;
    const double antes = procesador_us();
    reloj.start();
    f();
    pared.push_back(static_cast<double>(reloj.nsecsElapsed()) / 1e3);
    procesador.push_back(procesador_us() - antes);
  }
};

}  // namespace

void correrEn(const QString& archivo, const QString& sql) {
  sqlite3* base = nullptr;
  char* error = nullptr;
  if (sqlite3_open(archivo.toUtf8().constData(), &base) != SQLITE_OK ||
      sqlite3_exec(base, sql.toUtf8().constData(), nullptr, nullptr, &error) != SQLITE_OK) {
    romper("cannot prepare the store", QString::fromUtf8(error));
  }
  sqlite3_close(base);
}

QString sentenciasDeHistoria(qint64 antiguas, qint64 delDia) {
  return QStringLiteral(
             "PRAGMA synchronous=OFF; BEGIN;"
             "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < %1 + %2 - 1) "
             "INSERT INTO Operacion (cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, nProdCant, nProdPrecUnit,"
             " nMontoSoles, nMontoDolares, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi, nDscto, nServicio, "
             "cDocCodigo, cRuc,"
             " cDocSerie, cDocTipo, cEmisor, cOperCodeAnula, cOperFlagAbierto, cFlagSincronizacion) "
             "SELECT i / 6 + 1, 'CAJERO', '', '01', iif(i % 6 = 5, 0, 101 + i % 40), iif(i % 6 = 5, 1, 1 + i % 3),"
             " iif(i % 6 = 5, 0, 4.5 + i % 20), iif(i % 6 = 5, 60, 0), 0,"
             " iif(i < %1, datetime('2026-11-23 22:00:00', '-' || ((%1 - i) / 40) || ' minutes'),"
             " datetime('2026-11-24 08:00:00', '+' || ((i - %1) / 20) || ' seconds')), 1, '00001', '01', 0, 10, i / "
             "6 + 1, '',"
             " '001', '02', '', 0, i >= %1, iif(i < %1, '1', '0') FROM n;"
             "UPDATE Config_Documento SET nDocCodigo = (SELECT max(cDocCodigo) FROM Operacion) WHERE cTipoDoc = '02';"
             "UPDATE Configuracion SET cOperId = %1, cOperIdP = 0;"
             "COMMIT; PRAGMA wal_checkpoint(TRUNCATE);")
      .arg(antiguas)
      .arg(delDia);
}

Duelo::Duelo(PuestoPrueba& base, bool conDisco)
    : base_(base), conDisco_(conDisco), cinta_(base.motores), puertos_(base.puertos, cinta_) {
  base_.poCnnLocal.cerrar();
  p_ = std::make_unique<Puesto>(cinta_, puertos_, base_.reloj, base_.mensajes, base_.salida, base_.rutas);
  p_->ses = base_.ses;
  abrirLocal();
}

Duelo::~Duelo() = default;

void Duelo::abrirLocal() {
  if (!p_->poDBAdmin.AbrirBD(p_->poCnnLocal, conexionLocal(base_.ses.psRutaBD))) romper("the store does not open");
  if (!conDisco_) (void)p_->poCnnLocal.ejecutar(u"PRAGMA synchronous=OFF"_sql);
}

std::vector<Evento> Duelo::grabar() {
  if (!preparar_.isEmpty()) (void)p_->poCnnLocal.ejecutar(Sql::crudo(preparar_));
  cinta_.eventos.clear();
  cinta_.grabando = true;
  nuestro();
  cinta_.grabando = false;
  return cinta_.eventos;
}

void Duelo::aprender(Acto acto, const QString& preparar) {
  acto_ = std::move(acto);
  preparar_ = preparar;
  grabar();
  p_->poCnnLocal.cerrar();
  for (const QString& nombre :
       {QStringLiteral("TarvoPos.mdb"), QStringLiteral("central.db"), QStringLiteral("cliente.db")}) {
    QFile::remove(gemela_.filePath(nombre));
    if (!QFile::copy(base_.rutas.enPrograma(nombre), gemela_.filePath(nombre))) romper("cannot copy", nombre);
  }
  abrirLocal();
  const QString diario = base_.rutas.enPrograma(QStringLiteral("Err_20261124.log"));
  const auto antes = contenido(diario).size();
  const auto primera = grabar();
  QList<QByteArray> log;
  for (const QByteArray& l : contenido(diario).mid(antes).split('\n')) {
    if (!l.isEmpty()) log << l + '\n';
  }
  const auto segunda = grabar();
  piso_ = std::make_unique<Piso>(primera, segunda, gemela_.path(), log, conDisco_);
  for (int i = 0; i < 2; ++i) {
    piso_->preparar(preparar_);
    pisar();
  }
}

void Duelo::pisar() {
  piso_->acto();
  if (servidor_) servidor_();
}

void Duelo::medir(benchmark::State& estado, const QStringList& consultas) {
  Tiempos nuestros, delPiso;
  const auto mio = [&] {
    if (!preparar_.isEmpty()) (void)p_->poCnnLocal.ejecutar(Sql::crudo(preparar_));
    nuestros.tomar([this] { nuestro(); });
  };
  bool primero = false;
  for (auto _ : estado) {
    primero = !primero;
    if (primero) mio();
    piso_->preparar(preparar_);
    delPiso.tomar([this] { pisar(); });
    if (!primero) mio();
    estado.SetIterationTime(nuestros.pared.back() / 1e6);
  }
  if (!iguales(consultas)) estado.SkipWithError("the two roads left different rows");
  const double n = mediana(nuestros.pared), p = mediana(delPiso.pared);
  estado.counters["nuestro_us"] = n;
  estado.counters["piso_us"] = p;
  estado.counters["veces"] = n / p;
  estado.counters["nuestro_cpu_us"] = mediana(nuestros.procesador);
  estado.counters["piso_cpu_us"] = mediana(delPiso.procesador);
}

bool Duelo::iguales(const QStringList& consultas) {
  Conexion gemela;
  if (gemela.abrir(base_.motores, conexionLocal(gemela_.filePath(QStringLiteral("TarvoPos.mdb"))), 1000)) return false;
  for (const QString& sql : consultas) {
    const QString nuestras = base_.filas(p_->poCnnLocal, sql), suyas = base_.filas(gemela, sql);
    if (!nuestras.isEmpty() && nuestras == suyas) continue;
    std::fprintf(stderr, "%s\nours  %s\nfloor %s\n", qPrintable(sql), qPrintable(nuestras.left(300)),
                 qPrintable(suyas.left(300)));
    return false;
  }
  return true;
}
