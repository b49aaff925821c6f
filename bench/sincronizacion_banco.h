#pragma once
// A desk with a synchronisation to run, and what one takes.
#include <sqlite3.h>
#include <unistd.h>

#include <QDir>

#include "apoyo/servidor_prueba.h"
#include "breve.h"
#include "duelo.h"
#include "platform/sql/base_sqlite.h"
#include "sync/sincronizar.h"
#include "sync/updt.h"

inline QString q(const char* s) { return QString::fromUtf8(s); }

// Numbers 1 to n as a table.
inline QString hasta(qint64 n) {
  return q("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) ").arg(n);
}

// What a PostgreSQL server that is measured has taken of the processor, with all its processes; 0 without one.
inline QByteArray elServidor;
inline double cpuDelServidor_s() {
  if (elServidor.isEmpty()) return 0;
  double ticks = 0;
  for (const QString& proceso : QDir(q("/proc")).entryList({q("[0-9]*")}, QDir::Dirs)) {
    QFile f(q("/proc/%1/stat").arg(proceso));
    if (!f.open(QIODevice::ReadOnly)) continue;
    const QByteArrayList partes = f.readAll().split(')').last().simplified().split(' ');  // from the state on
    const bool padre = proceso.toUtf8() == elServidor;
    if (partes.size() < 15 || (!padre && partes[1] != elServidor)) continue;
    for (int i = 11; i < (padre ? 15 : 13); ++i) ticks += partes[i].toDouble();  // utime, stime; those of its dead too
  }
  return ticks / static_cast<double>(sysconf(_SC_CLK_TCK));
}
inline void mirarServidor(const CadenaConexion& base) {
  const auto rs = ServidorPrueba::uno().crudo(base, q("SELECT split_part(pg_read_file('postmaster.pid'), chr(10), 1)"));
  elServidor = rs[0].toString().toUtf8();
}

// What an act took: by the clock, and of the processor alone, which also tells on a machine that is busy.
struct Tiempo {
  double s = 0, cpu_s = 0;
};

template <class F>
Tiempo cronometrar(F f) {
  const auto cpu = [] {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + 1e-9 * static_cast<double>(t.tv_nsec) + cpuDelServidor_s();
  };
  const auto antes = std::chrono::steady_clock::now();
  const double cpuAntes = cpu();
  f();
  return {std::chrono::duration<double>(std::chrono::steady_clock::now() - antes).count(), cpu() - cpuAntes};
}

struct Tienda : PuestoPrueba {
  Tienda() {
    persona().dejaPasar();
    ejecuta(q("INSERT INTO Sincronizacion (dFechSincro) VALUES (Null)"));
  }
  QString central() const { return rutas.enPrograma(q("central.db")); }
  // Closed rows of one Z, three to a ticket.
  void vender(qint64 n) {
    correrEn(
        ses.psRutaBD,
        hasta(n) + q("INSERT INTO Operacion (cOperCode, cUserDesc, nTarjNumb, cAlmaCode, cProdCode, nProdCant, "
                     "nProdPrecUnit, dOperFech, cOperTipo, cCajaCodi, cTurnoCodi, cDocTipo, cDocSerie, cDocCodigo, "
                     "cOperFlagAbierto) SELECT 1 + i / 3, 'CAJERO', '', '01', 100 + i % 40, 1 + i % 3, 4.5, "
                     "datetime('2026-11-23 08:00', '+' || (i / 30) || ' minutes'), 1, '00001', '01', '02', '001', "
                     "1 + i / 3, 0 FROM n"));
    correrEn(ses.psRutaBD, q("INSERT INTO CabeceraZ (IdZ, Caja, Fecha, cOperIdIni, cOperIdFin) VALUES (1, '00001', "
                             "'2026-11-23', 0, %1)")
                               .arg(n));
  }
  void maestros(qint64 articulos, qint64 clientes) {
    correrEn(central(), hasta(articulos) +
                            q("INSERT INTO Articulo (cCodartic, vDscartic, cCodCatal, vDscartCt, dFechCrea, dFechModi) "
                              "SELECT printf('%06d', i), 'ARTICULO ' || i, 'C' || i, 'ART ' || i, '2026-01-05', "
                              "'2026-01-05' FROM n"));
    correrEn(central(),
             hasta(articulos) + q("INSERT INTO ArticuloPrecioVenta SELECT printf('%06d', i), 1, i % 90 FROM n"));
    correrEn(central(), hasta(clientes) + q("INSERT INTO Cliente (cClieCode, IdLocal, sClieApel, sClieName, iTipo, "
                                            "dFechCrea, dFechModi) SELECT i, 1, 'APELLIDO ' || i, 'NOMBRE', 1, "
                                            "'2026-01-05', '2026-01-05' FROM n"));
  }
  Tiempo sincronizar(bool maestros, bool enLotes = true) {
    FrmUpdt v(*this);
    v.enLotes = enLotes;
    ses.pbSincronizaMaestros = maestros;
    return cronometrar([&] {
      if (!Sincronizar(*this, v)) romper("the run came to a bad end");
    });
  }
};

inline sqlite3_stmt* preparar(sqlite3* db, const QByteArray& sql) {
  sqlite3_stmt* s = nullptr;
  if (sqlite3_prepare_v2(db, sql.constData(), -1, &s, nullptr) != SQLITE_OK)
    romper("the floor", QLatin1String(sqlite3_errmsg(db)));
  return s;
}
