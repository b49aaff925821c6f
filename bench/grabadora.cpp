#include "grabadora.h"

#include <QDir>
#include <QFileInfo>
#include <cstdio>

#include "duelo.h"
#include "platform/sql/cadena_conexion.h"

namespace {

const QString kLocal = QStringLiteral("TarvoPos.mdb");

class MotorGrabado final : public Motor {
 public:
  MotorGrabado(std::unique_ptr<Motor> real, QString base, MotoresGrabados& cinta)
      : real_(std::move(real)), base_(std::move(base)), cinta_(cinta) {
    apuntar(Evento::Abre, {});
  }
  ~MotorGrabado() override { apuntar(Evento::Cierra, {}); }
  std::optional<ErrorBD> consultar(const QString& sql, Recordset& rs) override {
    apuntar(Evento::Sentencia, sql);
    return real_->consultar(sql, rs);
  }
  std::optional<ErrorBD> ejecutar(const QString& sql, qint64* afectadas) override {
    apuntar(Evento::Sentencia, sql);
    return real_->ejecutar(sql, afectadas);
  }
  std::optional<ErrorBD> iniciar() override {
    apuntar(Evento::Sentencia, QStringLiteral("BEGIN IMMEDIATE"));
    return real_->iniciar();
  }
  std::optional<ErrorBD> confirmar() override {
    apuntar(Evento::Sentencia, QStringLiteral("COMMIT"));
    return real_->confirmar();
  }
  std::optional<ErrorBD> deshacer() override { return real_->deshacer(); }
  QString traducir(const QString& sql) override { return real_->traducir(sql); }

 private:
  void apuntar(Evento::Tipo tipo, const QString& sql) {
    if (cinta_.grabando) cinta_.eventos.push_back({tipo, base_, sql.isEmpty() ? sql : real_->traducir(sql), {}});
  }
  std::unique_ptr<Motor> real_;
  QString base_;
  MotoresGrabados& cinta_;
};

bool digito(QChar c) { return c >= u'0' && c <= u'9'; }

// Splits into runs of figures and what stands between them.
QStringList cifrasYResto(const QString& t) {
  QStringList partes;
  for (const QChar c : t) {
    if (partes.isEmpty() || digito(partes.back().back()) != digito(c)) partes << QString();
    partes.back() += c;
  }
  return partes;
}

SentenciaPiso comoPiso(const QString& a, const QString& b) {
  const QStringList una = cifrasYResto(a), otra = cifrasYResto(b);
  if (una.size() != otra.size()) romper("two acts differ", a + QStringLiteral(" / ") + b);
  SentenciaPiso s;
  bool enTexto = false;
  for (qsizetype i = 0; i < una.size(); ++i) {
    if (una[i] == otra[i]) {
      s.sql += una[i].toUtf8();
      enTexto ^= una[i].count(u'\'') % 2 == 1;
      continue;
    }
    s.inicio.push_back(una[i].toLongLong());
    s.paso.push_back(otra[i].toLongLong() - una[i].toLongLong());
    s.sql += enTexto ? "' || printf('%0" + QByteArray::number(una[i].size()) + "d', ?) || '" : QByteArray("?");
  }
  return s;
}

}  // namespace

std::optional<QString> PuertosGrabados::copiar(const QString& archivo, const QString& puerto) {
  QFile f(archivo);
  if (cinta_.grabando && f.open(QIODevice::ReadOnly)) {
    cinta_.eventos.push_back({Evento::Archivo, {}, QString::fromLatin1(f.readAll()), archivo});
  }
  return reales_.copiar(archivo, puerto);
}

std::unique_ptr<Motor> MotoresGrabados::abrir(const QString& cadena, int espera_ms, ErrorBD& error) {
  auto motor = reales_.abrir(cadena, espera_ms, error);
  if (!motor || leerCadenaConexion(cadena).tipo == TipoMotor::Postgres) return motor;
  QString& base = bases_[cadena];
  if (base.isEmpty()) base = QFileInfo(leerCadenaConexion(cadena).archivo).fileName();
  return std::make_unique<MotorGrabado>(std::move(motor), base, *this);
}

Piso::Piso(const std::vector<Evento>& primera, const std::vector<Evento>& segunda, const QString& carpeta,
           const QList<QByteArray>& log, bool conDisco)
    : carpeta_(carpeta), log_(log), conDisco_(conDisco) {
  if (primera.size() != segunda.size()) romper("two acts differ", QStringLiteral("in their number of calls"));
  local_ = abrirBase(kLocal);
  for (size_t i = 0; i < primera.size(); ++i) {
    Paso paso{primera[i], {}, nullptr};
    if (paso.evento.tipo == Evento::Sentencia) paso.sentencia = comoPiso(primera[i].texto, segunda[i].texto);
    if (paso.evento.tipo == Evento::Sentencia && paso.evento.base == kLocal &&
        compilar(local_, paso.sentencia.sql, SQLITE_PREPARE_PERSISTENT, &paso.preparada) != SQLITE_OK) {
      romper(sqlite3_errmsg(local_), QString::fromUtf8(paso.sentencia.sql));
    }
    pasos_.push_back(std::move(paso));
  }
}

Piso::~Piso() {
  for (Paso& p : pasos_) sqlite3_finalize(p.preparada);
  sqlite3_close(local_);
}

sqlite3* Piso::abrirBase(const QString& nombre) {
  sqlite3* base = nullptr;
  const QByteArray ruta = QDir(carpeta_).filePath(nombre).toUtf8();
  if (sqlite3_open_v2(ruta.constData(), &base, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK) {
    romper("cannot open", nombre);
  }
  sqlite3_exec(base, conDisco_ ? "PRAGMA synchronous=FULL" : "PRAGMA synchronous=OFF", nullptr, nullptr, nullptr);
  // The one function of the dialect that the statements of a sale use, as plain as can be.
  sqlite3_create_function_v2(
      base, "tp_convint", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
      [](sqlite3_context* c, int, sqlite3_value** v) {
        if (sqlite3_value_type(v[0]) == SQLITE_NULL) sqlite3_result_null(c);
        else sqlite3_result_int64(c, sqlite3_value_int64(v[0]));
      },
      nullptr, nullptr, nullptr);
  return base;
}

int Piso::compilar(sqlite3* base, const QByteArray& sql, unsigned opciones, sqlite3_stmt** sentencia) {
  const auto probar = [&] { return sqlite3_prepare_v3(base, sql.constData(), -1, opciones, sentencia, nullptr); };
  if (const int rc = probar(); rc != SQLITE_ERROR) return rc;
  // A report asks for more of the dialect's functions.
  entorno_.registradas.clear();
  entorno_.conColacion = false;
  registrarFunciones(base, entorno_, sql);
  return probar();
}

void Piso::preparar(const QString& sql) {
  if (!sql.isEmpty()) sqlite3_exec(local_, sql.toUtf8().constData(), nullptr, nullptr, nullptr);
}

void Piso::correr(Paso& paso, sqlite3* base) {
  sqlite3_stmt* s = paso.preparada;
  if (!s && compilar(base, paso.sentencia.sql, 0, &s) != SQLITE_OK) {
    romper(sqlite3_errmsg(base), QString::fromUtf8(paso.sentencia.sql));
  }
  for (size_t i = 0; i < paso.sentencia.inicio.size(); ++i) {
    sqlite3_bind_int64(s, static_cast<int>(i + 1), paso.sentencia.inicio[i] + van_ * paso.sentencia.paso[i]);
  }
  int rc;
  while ((rc = sqlite3_step(s)) == SQLITE_ROW) {
    for (int i = 0; i < sqlite3_column_count(s); ++i) (void)sqlite3_column_text(s, i);
  }
  if (rc != SQLITE_DONE) romper(sqlite3_errmsg(base), QString::fromUtf8(paso.sentencia.sql));
  if (paso.preparada) sqlite3_reset(s);
  else sqlite3_finalize(s);
}

void Piso::escribir(const Paso& paso) {
  const QByteArray ruta = QFile::encodeName(QDir(carpeta_).filePath(QFileInfo(paso.evento.archivo).fileName()));
  const QByteArray bytes = paso.evento.texto.toLatin1();
  if (std::FILE* f = std::fopen(ruta.constData(), "wb")) {
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), f);
    std::fclose(f);
  }
  QByteArray leidos(bytes.size(), 0);
  if (std::FILE* f = std::fopen(ruta.constData(), "rb")) {
    (void)!std::fread(leidos.data(), 1, static_cast<size_t>(leidos.size()), f);
    std::fclose(f);
  }
}

void Piso::acto() {
  QHash<QString, sqlite3*> abiertas{{kLocal, local_}};
  for (Paso& paso : pasos_) {
    sqlite3*& base = abiertas[paso.evento.base];
    switch (paso.evento.tipo) {
      case Evento::Abre: base = abrirBase(paso.evento.base); break;
      case Evento::Cierra:
        sqlite3_close(base);
        base = nullptr;
        break;
      case Evento::Sentencia: correr(paso, base); break;
      case Evento::Archivo: escribir(paso); break;
    }
  }
  for (auto [nombre, base] : abiertas.asKeyValueRange()) {
    if (base != local_) sqlite3_close(base);
  }
  const QByteArray diario = QFile::encodeName(QDir(carpeta_).filePath(QStringLiteral("Err.log")));
  for (const QByteArray& linea : log_) {
    if (std::FILE* f = std::fopen(diario.constData(), "ab")) {
      std::fwrite(linea.constData(), 1, static_cast<size_t>(linea.size()), f);
      std::fclose(f);
    }
  }
  ++van_;
}
