#pragma once
// What a simulation knows by itself. Its plan stands in the simulation's folder; each desk keeps a book beside its own
// folder, where no restored copy takes it back: what was keyed before each act, what stood in the store behind it.
// Amounts in cents of sol.
#include <QDateTime>
#include <QSet>
#include <QString>
#include <QStringList>
#include <map>
#include <optional>
#include <vector>

struct PlanSimulacion {
  QString carpeta;
  int puestos = 4, dias = 10;
  int operaciones = 12;  // acts a day, about
  quint64 semilla = 1;
  QStringList fallas;        // which kinds of faults come
  QString servidor;          // "postgres:USER:PASSWORD@HOST:PORT", without a database
  QString central, cliente;  // the databases there
  int puertoLocal = 0;       // of a server on this machine, whose wire can be cut; 0 for one elsewhere
  QString caja(int n) const { return carpeta + QStringLiteral("/caja%1").arg(n); }
  QString codigo(int n) const { return QStringLiteral("%1").arg(n, 5, 10, QChar(u'0')); }
  bool con(const QString& falla) const { return fallas.contains(falla); }
};
// The kinds of faults, in the order of the help.
extern const QStringList kFallasSimuladas;

QString BaseDeSimulacion(const PlanSimulacion& plan, bool central);  // "postgres:...@HOST:PORT/DATABASE"
[[nodiscard]] std::optional<QString> GuardarPlan(const PlanSimulacion& plan);
// Nothing for a folder that holds no simulation.
std::optional<PlanSimulacion> LeerPlan(const QString& carpeta);
QDate DiaSimulado(int dia);  // from 1
// A seed of its own for each thing that is decided.
quint64 SemillaDe(const PlanSimulacion& plan, int caja, int dia, int acto, int cosa);

// What was keyed in an act that began.
struct Intento {
  int dia = 0, acto = 0;
  QString nombre;
  qint64 total = 0, puntos = 0;
  int unidades = 0;
  qint64 marca = 0, marcaParalela = 0;  // the highest row and code before it
};

// A document that stood in the store behind an act.
struct Asiento {
  int dia = 0, acto = 0;
  QString tipo, serie;  // cDocTipo
  qint64 numero = 0, codigo = 0, total = 0, puntos = 0;
  int unidades = 0;
  bool dudoso = false;         // a sale that died in its rows
  bool puntosDudosos = false;  // a server was cut off in it, or in what took it back
  bool anulado = false;
  bool perdido = false;  // a copy put back has none of it
};

class LibroCaja {
 public:
  explicit LibroCaja(const QString& carpeta) : archivo_(carpeta + QStringLiteral(".libro")) {}
  [[nodiscard]] bool leer();

  std::vector<Asiento> asientos;
  std::optional<Intento> abierto;  // an act whose end nobody saw
  std::map<int, qint64> cierres;   // day -> what its Z1 must tell
  std::map<int, int> vistos;       // day -> the last act that was begun
  QSet<QString> veces;             // faults that have come, "day/act"
  QStringList diferencias;
  int restauraciones = 0, vacios = 0;  // copies put back; acts that died before they left a document
  QSet<QDate> diasPerdidos;            // whose closing the store does not know any more

  void intentar(const Intento& i);
  void asentar(const Asiento& a);
  void terminar();
  void anular(int dia, const QString& tipo, const QString& serie, qint64 numero, bool puntosDudosos);
  // On the day `hoy` the store was put back: it holds nothing of `dia` and later ones.
  void restaurar(int dia, int hoy);
  void cerrar(int dia, qint64 z1);
  void averia(const QString& clave);
  void diferencia(const QString& texto);
  // What stood of that day at its closing, or when the store was taken away: rows as one text each.
  void guardarFilas(int dia, const QStringList& filas);
  // All of them; true for those that a copy put back has lost since.
  std::vector<std::pair<QString, bool>> filas() const;

 private:
  void anotar(const QStringList& celdas);
  void tomar(const QStringList& celdas);

  const QString archivo_;
};
