// Procedures of a PostgreSQL server.
#include <libpq-fe.h>

#include "platform/sql/motor_postgres.h"

namespace {

constexpr int kFaltanArgumentos = 201;
constexpr unsigned kTexto = 25;

}  // namespace

// A procedure, or a function that gives rows; the functions of the dialect are neither.
std::optional<ErrorBD> MotorPostgres::buscarRutina(const QString& nombre, Rutina& rutina) {
  const QString clave = nombre.toLower();
  if (const auto r = rutinas_.constFind(clave); r != rutinas_.constEnd()) {
    rutina = *r;
    return {};
  }
  PasoPg paso{.texto = "SELECT prokind, pronargs FROM pg_proc WHERE pronamespace = to_regnamespace('dbo') AND "
                       "proname = $1 AND (prokind = 'p' OR proretset)",
              .tipos = {kTexto},
              .valores = {clave.toUtf8()}};
  std::vector<ResultadoPg> r;
  if (auto e = canal_->pedir({paso}, r)) return e;
  Recordset rs;
  FilasPostgres().dejar(r[0].get(), rs);
  if (rs.Eof()) {
    return ErrorBD{kErrorSentencia, 2812,
                   QStringLiteral("No se encuentra el procedimiento almacenado '%1'.").arg(nombre)};
  }
  rutina = {rs[0].toString().at(0).toLatin1(), rs[1].toInt()};
  rutinas_.insert(clave, rutina);
  return {};
}

// The server finds the types of what is passed by those that the procedure takes.
std::optional<ErrorBD> MotorPostgres::llamar(const Llamada& llamada, Recordset* rs) {
  if (llamada.error) return llamada.error;
  Rutina rutina;
  if (auto e = buscarRutina(llamada.nombre, rutina)) return e;
  if (rutina.argumentos != llamada.argumentos.size()) {
    return ErrorBD{kErrorSentencia, kFaltanArgumentos,
                   QStringLiteral("El procedimiento %1 lleva %2 argumentos y recibió %3.")
                       .arg(llamada.nombre.toLower())
                       .arg(rutina.argumentos)
                       .arg(llamada.argumentos.size())};
  }
  PasoPg paso;
  QByteArrayList lugares;
  for (const QVariant& v : llamada.argumentos) {
    lugares << '$' + QByteArray::number(lugares.size() + 1);
    paso.tipos.push_back(0);
    paso.valores.push_back(enTexto(v));
    if (v.toString().contains(QChar(0))) {
      return ErrorBD{kErrorSentencia, 1, QStringLiteral("La sentencia contiene un carácter nulo.")};
    }
  }
  paso.texto = (rutina.clase == 'p' ? "CALL dbo." : "SELECT * FROM dbo.") +
               kPalabrasPostgres.citado(llamada.nombre).toUtf8() + '(' + lugares.join(',') + ')';
  std::vector<ResultadoPg> r;
  FilasPostgres tomadas;
  if (auto e = pedir({paso}, r, &tomadas)) return e;
  if (rs && rutina.clase == 'f') tomadas.dejar(r.back().get(), *rs);
  return {};
}
