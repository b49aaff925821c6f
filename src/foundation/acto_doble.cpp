#include "foundation/acto_doble.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <utility>

#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/sql/cadena_conexion.h"
#include "platform/sql/esquema.h"
#include "platform/text/fecha.h"

namespace {

using Error = std::optional<ErrorBD>;

const QString kPendiente = QStringLiteral("P"), kHecho = QStringLiteral("H"), kRechazado = QStringLiteral("R");

struct FilaActo {
  QString caja, nombre, estado;
  std::vector<Sql> termina, deshace;
};

// As a database of that dialect reads them, for the day on which they are taken up again. Without a quote in it: the
// store's dialect makes a sum of a text with some, and no engine takes one as long as a document's lines.
QString aTexto(const std::vector<Sql>& sentencias, Dialecto dialecto) {
  QJsonArray textos;
  for (const Sql& s : sentencias) textos.append(s.texto(dialecto));
  return QString::fromUtf8(QJsonDocument(textos).toJson(QJsonDocument::Compact))
      .replace(u'\'', QLatin1String("\\u0027"));
}

std::vector<Sql> aSentencias(const QVariant& texto) {
  std::vector<Sql> sentencias;
  for (const auto& s : QJsonDocument::fromJson(texto.toString().toUtf8()).array()) {
    sentencias.push_back(Sql::crudo(s.toString()));
  }
  return sentencias;
}

QString nombreDe(ServidorActo s) {
  return s == ServidorActo::Central ? QStringLiteral("central") : QStringLiteral("cliente");
}

QString cadenaDe(const Puesto& p, ServidorActo s) {
  return s == ServidorActo::Central ? p.ses.psConexionCentral : p.ses.psConexionCliente;
}

Conexion& conexionDe(Puesto& p, ServidorActo s) { return s == ServidorActo::Central ? p.poCnnCentral : p.poCnnCliente; }

bool& porMirar(Puesto& p, ServidorActo s) { return p.ses.actosPorMirar[static_cast<size_t>(s)]; }

Sql donde(const FilaActo& a) {
  return FormatearSQL(u" WHERE cCajaCodi = '$' AND cActo = '$'"_sql, {Texto(a.caja), Texto(a.nombre)});
}

// The row of the half that goes first: with what the other database, of the dialect told, still takes.
Sql sentenciaPendiente(const Puesto& p, const FilaActo& a, ServidorActo s, Dialecto deLaOtra, Dialecto deEsta) {
  return FormatearSQL(u"INSERT INTO Diario_Acto (cCajaCodi, cActo, cServidor, cEstado, sFecha, tTermina, tDeshace) "
                      u"VALUES ('$', '$', '$', '$', '$', '$', '$')"_sql,
                      {Texto(a.caja), Texto(a.nombre), Texto(nombreDe(s)), Texto(kPendiente),
                       Texto(FormatearFecha(p.reloj.now(), u"dd/mm/yyyy hh:nn:ss")), Texto(aTexto(a.termina, deLaOtra)),
                       Texto(aTexto(a.deshace, deEsta))});
}

Sql sentenciaHecho(const Puesto& p, const FilaActo& a, ServidorActo s) {
  return FormatearSQL(u"INSERT INTO Diario_Acto (cCajaCodi, cActo, cServidor, cEstado, sFecha) "
                      u"VALUES ('$', '$', '$', '$', '$')"_sql,
                      {Texto(a.caja), Texto(a.nombre), Texto(nombreDe(s)), Texto(kHecho),
                       Texto(FormatearFecha(p.reloj.now(), u"dd/mm/yyyy hh:nn:ss"))});
}

Sql sentenciaBorrar(const FilaActo& a) { return u"DELETE FROM Diario_Acto"_sql + donde(a); }

// Whether a row of that act stands there.
Error buscar(Conexion& cnn, const FilaActo& a, bool& esta) {
  Recordset rs;
  auto error = cnn.consultar(u"SELECT cEstado FROM Diario_Acto"_sql + donde(a), rs);
  esta = !error && !rs.Eof();
  return error;
}

// A statement that this database will never take, as against one that could not be tried.
bool rechazada(const ErrorBD& error) { return error.numero == kErrorSentencia; }

// An act that was taken back, and how the person is told.
struct Deshecho {
  QString nombre, palabras;
};

// The rows that acts with one server have left, in the store or in that server.
class Restos {
 public:
  // `deshechos` gets those that are taken back.
  Restos(Puesto& p, ServidorActo servidor, Conexion& cnn, std::vector<Deshecho>& deshechos)
      : p_(p), servidor_(servidor), cnn_(cnn), deshechos_(deshechos) {}

  bool terminar() {
    std::vector<FilaActo> enLocal, enServidor;
    const Sql suyas = FormatearSQL(u" AND cCajaCodi = '$'"_sql, {Texto(p_.ses.psCaja)});
    if (!leer(p_.poCnnLocal, {}, enLocal) || !leer(cnn_, suyas, enServidor)) return false;
    bool bien = true;
    for (const FilaActo& a : enLocal) bien &= a.estado != kPendiente || terminarUno(a, p_.poCnnLocal, cnn_);
    for (const FilaActo& a : enServidor) bien &= a.estado != kPendiente || terminarUno(a, cnn_, p_.poCnnLocal);
    if (!bien) return false;
    for (const FilaActo& a : enLocal) bien &= a.estado != kHecho || !p_.poCnnLocal.ejecutar(sentenciaBorrar(a));
    for (const FilaActo& a : enServidor) bien &= a.estado != kHecho || !cnn_.ejecutar(sentenciaBorrar(a));
    return bien;
  }

 private:
  bool leer(Conexion& cnn, const Sql& condicion, std::vector<FilaActo>& filas) {
    Recordset rs;
    const auto error = cnn.consultar(
        FormatearSQL(u"SELECT cCajaCodi, cActo, cEstado, tTermina, tDeshace FROM Diario_Acto WHERE cServidor = '$'"_sql,
                     {Texto(nombreDe(servidor_))}) +
            condicion + u" ORDER BY nDiario"_sql,
        rs);
    for (const auto& f : rs) {
      filas.push_back({LimpiarNulo(f[0]), LimpiarNulo(f[1]), LimpiarNulo(f[2]), aSentencias(f[3]), aSentencias(f[4])});
    }
    return !error || rechazada(*error);  // a database without the table holds none
  }

  bool terminarUno(const FilaActo& a, Conexion& primera, Conexion& segunda) {
    bool esta = false;
    if (buscar(segunda, a, esta)) return false;
    if (!esta) {
      // The mark goes first: the half may be on its way yet, in a connection that broke; a second mark waits for it.
      bool llego = false;
      const auto error = EnTransaccion(segunda, [&]() -> Error {
        if (auto e = segunda.ejecutar(sentenciaHecho(p_, a, servidor_))) {
          llego = e->claveDuplicada();
          return e;
        }
        return EjecutarTodas(segunda, a.termina);
      });
      if (error && !llego) return rechazada(*error) && deshacer(a, primera, *error);
    }
    if (primera.ejecutar(sentenciaBorrar(a))) return false;
    return !segunda.ejecutar(sentenciaBorrar(a));
  }

  bool deshacer(const FilaActo& a, Conexion& primera, const ErrorBD& porque) {
    const bool sePuede = !a.deshace.empty();
    const auto error = EnTransaccion(primera, [&]() -> Error {
      if (auto e = EjecutarTodas(primera, a.deshace)) return e;
      return primera.ejecutar(sePuede ? sentenciaBorrar(a)
                                      : FormatearSQL(u"UPDATE Diario_Acto SET cEstado = '$'"_sql, {Texto(kRechazado)}) +
                                            donde(a));
    });
    if (error) return false;
    const QString palabras = QStringLiteral("«%1» con el servidor %2 ").arg(a.nombre, nombreDe(servidor_)) +
                             (sePuede ? QStringLiteral("se deshizo: ") : QStringLiteral("quedó a medias: ")) +
                             porque.descripcion;
    p_.registro.RegistrarErrorLog(palabras);
    if (sePuede) deshechos_.push_back({a.nombre, palabras});
    else p_.mensajes.mostrar(palabras + QStringLiteral("\nAvise a soporte."));
    return true;
  }

  Puesto& p_;
  const ServidorActo servidor_;
  Conexion& cnn_;
  std::vector<Deshecho>& deshechos_;
};

bool terminarRestos(Puesto& p, ServidorActo servidor, Conexion& cnn, std::vector<Deshecho>& deshechos) {
  // What is finished inside somebody else's transaction could be undone with it.
  const bool bien =
      !p.poCnnLocal.enTransaccion() && !cnn.enTransaccion() && Restos(p, servidor, cnn, deshechos).terminar();
  porMirar(p, servidor) = !bien;
  return bien;
}

// Who thought that they would stand has to know.
void contarDeshechos(Puesto& p, const std::vector<Deshecho>& deshechos) {
  for (const Deshecho& d : deshechos) p.mensajes.mostrar(d.palabras);
}

// One act on its way.
class Marcha {
 public:
  Marcha(Puesto& p, const ActoDoble& acto)
      : p_(p),
        acto_(acto),
        servidor_(conexionDe(p, acto.servidor)),
        localPrimero_(acto.orden == ActoDoble::LocalPrimero) {}

  ResultadoActo hacer() {
    if (!servidor_.abierta()) (void)p_.poDBAdmin.AbrirBD(servidor_, cadenaDe(p_, acto_.servidor), false, kEspera);
    else if (porMirar(p_, acto_.servidor)) (void)TerminarActos(p_, acto_.servidor, servidor_);
    // Nobody else may look at the server's rows while this act is on its way.
    const bool quedaban = std::exchange(porMirar(p_, acto_.servidor), false);
    ResultadoActo r;
    try {
      r = confirmarAmbas();
    } catch (...) {
      soltar(segunda());
      soltar(primera());
      throw;
    }
    porMirar(p_, acto_.servidor) = porMirar(p_, acto_.servidor) || quedaban;
    return r;
  }

 private:
  static constexpr auto kEspera = clsDBAdmin::Espera::Venta;

  Conexion& primera() { return localPrimero_ ? p_.poCnnLocal : servidor_; }
  Conexion& segunda() { return localPrimero_ ? servidor_ : p_.poCnnLocal; }
  const std::vector<Sql>& deLaPrimera() const { return localPrimero_ ? acto_.enLocal : acto_.enServidor; }

  // Both transactions are open while the act is made ready.
  Error preparar() {
    Error error;
    if (acto_.preparar) {
      error = primera().iniciar();
      if (!error) error = segunda().iniciar();
      if (!error) error = acto_.preparar(acto_);
    }
    fila_ = {p_.ses.psCaja, acto_.nombre, kPendiente, localPrimero_ ? acto_.enServidor : acto_.enLocal, acto_.deshacer};
    // Where the first half is nothing, there is nothing to take back but its row.
    if (deLaPrimera().empty()) fila_.deshace = {sentenciaBorrar(fila_)};
    return error;
  }

  Error empezar(Conexion& cnn, const std::vector<Sql>& sentencias, const Sql& fila) {
    auto error = acto_.preparar ? Error() : cnn.iniciar();
    if (!error) error = EjecutarTodas(cnn, sentencias);
    if (!error) error = cnn.ejecutar(fila);
    return error;
  }

  Sql filaPendiente() const {
    // A server that was never reached has no connection to ask for its dialect.
    const Dialecto local = p_.poCnnLocal.dialecto(), servidor = dialectoDe(cadenaDe(p_, acto_.servidor));
    return sentenciaPendiente(p_, fila_, acto_.servidor, localPrimero_ ? servidor : local,
                              localPrimero_ ? local : servidor);
  }

  // What can't be undone at once the connection undoes before it runs anything else.
  static void soltar(Conexion& cnn) {
    if (cnn.enTransaccion()) (void)cnn.deshacer();
  }

  ResultadoActo nada(const ErrorBD& error) {
    soltar(segunda());
    soltar(primera());
    return {FinActo::Nada, error};
  }

  ResultadoActo confirmarAmbas() {
    if (const auto error = preparar()) return nada(*error);
    if (const auto error = empezar(primera(), deLaPrimera(), filaPendiente())) return nada(*error);
    const auto falta = empezar(segunda(), fila_.termina, sentenciaHecho(p_, fila_, acto_.servidor));
    if (falta) {
      if (!acto_.puedeEsperar || !localPrimero_ || rechazada(*falta)) return nada(*falta);
      soltar(segunda());
    }
    if (const auto error = primera().confirmar()) {
      soltar(primera());
      soltar(segunda());
      bool esta = false;
      if (mirarPrimera(esta)) return dudar(*error);
      if (!esta) return {FinActo::Nada, *error};
      return terminar(*error);
    }
    if (falta) return terminar(*falta);
    if (const auto error = segunda().confirmar()) {
      soltar(segunda());
      return terminar(*error);
    }
    limpiar();
    return {FinActo::Entero, {}};
  }

  // A connection that broke in its commit is opened once more to look.
  Error mirarPrimera(bool& esta) {
    auto error = localPrimero_ ? buscar(primera(), fila_, esta) : mirarServidor(esta);
    if (!error || localPrimero_) return error;
    if (!p_.poDBAdmin.AbrirBD(servidor_, cadenaDe(p_, acto_.servidor), false, kEspera)) return error;
    return mirarServidor(esta);
  }

  // The commit may be on its way there yet: a second row of its name waits for it, and is not kept.
  Error mirarServidor(bool& esta) {
    const ErrorBD ninguno;
    const auto error = EnTransaccion(servidor_, [&]() -> Error {
      auto e = servidor_.ejecutar(sentenciaHecho(p_, fila_, acto_.servidor));
      esta = e && e->claveDuplicada();
      return e ? e : ninguno;
    });
    return !error || esta || error->numero == ninguno.numero ? Error() : error;
  }

  ResultadoActo dudar(const ErrorBD& error) {
    porMirar(p_, acto_.servidor) = true;
    return {FinActo::EnDuda, error};
  }

  // The first half stands; the other one gets its second chance at once.
  ResultadoActo terminar(const ErrorBD& porque) {
    std::vector<Deshecho> deshechos;
    bool sigue = true;
    const bool bien = terminarRestos(p_, acto_.servidor, servidor_, deshechos);
    const bool nada = std::erase_if(deshechos, [this](const Deshecho& d) { return d.nombre == acto_.nombre; }) > 0;
    contarDeshechos(p_, deshechos);
    if (nada) return {FinActo::Nada, porque};
    if (bien && !buscar(primera(), fila_, sigue) && !sigue) return {FinActo::Entero, {}};
    porMirar(p_, acto_.servidor) = true;
    return {FinActo::Pendiente, porque};
  }

  // The mark goes last: without the row nobody looks for it.
  void limpiar() {
    if (primera().ejecutar(sentenciaBorrar(fila_)) || segunda().ejecutar(sentenciaBorrar(fila_))) {
      porMirar(p_, acto_.servidor) = true;
    }
  }

  Puesto& p_;
  ActoDoble acto_;
  Conexion& servidor_;
  const bool localPrimero_;
  FilaActo fila_;
};

}  // namespace

ResultadoActo EjecutarActo(Puesto& p, const ActoDoble& acto) {
  ResultadoActo r = Marcha(p, acto).hacer();
  for (int vez = 1; r.fin == FinActo::Nada && r.error.repetible() && vez < kVecesDelNudo; ++vez) {
    DejarPasarNudo(vez);
    r = Marcha(p, acto).hacer();
  }
  return r;
}

bool TerminarActos(Puesto& p, ServidorActo servidor, Conexion& cnn) {
  std::vector<Deshecho> deshechos;
  const bool bien = terminarRestos(p, servidor, cnn, deshechos);
  contarDeshechos(p, deshechos);
  return bien;
}

void MirarActos(Puesto& p, Conexion& cnn, const QString& cadena) {
  for (const ServidorActo s : {ServidorActo::Central, ServidorActo::Cliente}) {
    if (porMirar(p, s) && cadena == cadenaDe(p, s)) (void)TerminarActos(p, s, cnn);
  }
}

QString esquemaDeActos() {
  return QStringLiteral(R"(
-- Acts over this database and another one whose other half is missing (cEstado P), done (H) or refused (R).
CREATE TABLE Diario_Acto (
  nDiario INTEGER PRIMARY KEY,
  cCajaCodi TEXT NOT NULL,
  cActo TEXT NOT NULL,
  cServidor TEXT,
  cEstado TEXT,
  sFecha TEXT,
  tTermina TEXT,                              -- the statements of the other half, as a JSON list
  tDeshace TEXT,                              -- those that take this half back
  UNIQUE (cCajaCodi, cActo)
);
)");
}

QStringList tablasDeActos() { return sentenciasDeEsquema(esquemaDeActos()); }
