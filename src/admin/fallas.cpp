#include "admin/fallas.h"

#include <csignal>
#include <cstdlib>

namespace {

constexpr qint64 kErrorPedido = 13;  // any number of the engine's own: the disk is full

QString nombrePuerto(QString puerto) {
  puerto = puerto.trimmed().toUpper();
  while (puerto.endsWith(u':')) puerto.chop(1);
  return puerto;
}

// A question about the tables themselves, which no routine's own work consists of.
bool esDeCatalogo(const QString& sql) {
  return sql.trimmed().startsWith(QStringLiteral("PRAGMA"), Qt::CaseInsensitive) ||
         sql.contains(QStringLiteral(" FROM sqlite_master"), Qt::CaseInsensitive);
}

// One open connection.
class MotorConFallas final : public Motor {
 public:
  MotorConFallas(std::unique_ptr<Motor> real, QString cadena, Fallas& fallas)
      : real_(std::move(real)),
        cadena_(std::move(cadena)),
        fallas_(fallas),
        cuenta_(!fallas.cuenta || fallas.cuenta(cadena_)) {}

  std::optional<ErrorBD> consultar(const QString& sql, Recordset& rs) override {
    rs = {};
    return paso(sql, [&] { return real_->consultar(sql, rs); });
  }
  std::optional<ErrorBD> ejecutar(const QString& sql, qint64* afectadas) override {
    return paso(sql, [&] { return real_->ejecutar(sql, afectadas); });
  }
  std::optional<ErrorBD> iniciar() override {
    return paso(QStringLiteral("BEGIN"), [&] { return real_->iniciar(); });
  }
  std::optional<ErrorBD> confirmar() override {
    return paso(QStringLiteral("COMMIT"), [&] { return real_->confirmar(); });
  }
  std::optional<ErrorBD> deshacer() override {
    return paso(QStringLiteral("ROLLBACK"), [&] { return real_->deshacer(); });
  }
  QString traducir(const QString& sql) override { return real_->traducir(sql); }
  void deUnaPieza(bool si) override { real_->deUnaPieza(si); }
  int filasPorSentencia() const override { return real_->filasPorSentencia(); }
  std::unique_ptr<Repetida> repetir(const QString& sql) override {
    auto real = real_->repetir(sql);
    if (!real) return {};
    return std::make_unique<RepetidaConFallas>(*this, sql, std::move(real));
  }
  std::unique_ptr<CursorBD> abrirCursor(const QString& sql) override {
    auto real = real_->abrirCursor(sql);
    if (!real) return {};
    return std::make_unique<CursorConFallas>(*this, sql, std::move(real));
  }

 private:
  // Each piece that is read so is a step,
  class CursorConFallas final : public CursorBD {
   public:
    CursorConFallas(MotorConFallas& motor, QString sql, std::unique_ptr<CursorBD> real)
        : motor_(motor), sql_(std::move(sql)), real_(std::move(real)) {}
    std::optional<ErrorBD> seguir(qsizetype filas, Recordset& rs) override {
      rs = {};
      return motor_.paso(sql_, [&] { return real_->seguir(filas, rs); });
    }

   private:
    MotorConFallas& motor_;
    const QString sql_;
    std::unique_ptr<CursorBD> real_;
  };
  // and each row that goes in so.
  class RepetidaConFallas final : public Repetida {
   public:
    RepetidaConFallas(MotorConFallas& motor, QString sql, std::unique_ptr<Repetida> real)
        : motor_(motor), sql_(std::move(sql)), real_(std::move(real)) {}
    std::optional<ErrorBD> correr(const std::vector<CeldaBD>& valores) override {
      return motor_.paso(sql_, [&] { return real_->correr(valores); });
    }

   private:
    MotorConFallas& motor_;
    const QString sql_;
    std::unique_ptr<Repetida> real_;
  };

  template <typename Llamada>
  std::optional<ErrorBD> paso(const QString& sql, Llamada llamada) {
    if (!fallas_.catalogo && esDeCatalogo(sql)) return llamada();
    if (fallas_.apagado()) return ErrorBD{kErrorGeneral, 0, QStringLiteral("El programa se está cerrando.")};
    if (!cuenta_) return conServidor(llamada);
    fallas_.anotar(sql);
    return fallas_.paso([&]() -> std::optional<ErrorBD> {
      const bool falla = fallas_.tocaFallar();
      return conServidor([&]() -> std::optional<ErrorBD> {
        if (falla) return ErrorBD{kErrorGeneral, kErrorPedido, fallas_.palabras};
        return llamada();
      });
    });
  }
  template <typename Llamada>
  std::optional<ErrorBD> conServidor(Llamada llamada) {
    if (!fallas_.caido(cadena_)) return llamada();
    return ErrorBD{kErrorGeneral, 0, QStringLiteral("Se perdió la conexión con el servidor.")};
  }

  std::unique_ptr<Motor> real_;
  const QString cadena_;
  Fallas& fallas_;
  const bool cuenta_;
};

}  // namespace

void Fallas::caerPuerto(const QString& puerto, bool caido) {
  if (caido) {
    puertos_.insert(nombrePuerto(puerto));
  } else {
    puertos_.remove(nombrePuerto(puerto));
  }
}

void Fallas::fallar(int n, Alcance alcance) {
  fallaEn_ = n;
  fallidas_ = 0;
  alcance_ = alcance;
}

void Fallas::matar(int n, Momento momento) {
  mataEn_ = n;
  momento_ = momento;
}

bool Fallas::caido(const QString& cadena) const {
  return cadenaDe &&
         ((central_ && cadena == cadenaDe(Servidor::Central)) || (cliente_ && cadena == cadenaDe(Servidor::Cliente)));
}

bool Fallas::puertoCaido(const QString& puerto) const { return puertos_.contains(nombrePuerto(puerto)); }

bool Fallas::tocaFallar() {
  if (fallaEn_ == 0) return false;
  if (fallaEn_ > 1) {
    --fallaEn_;
    return false;
  }
  if (alcance_ == Alcance::UnaVez) fallaEn_ = 0;
  ++fallidas_;
  return true;
}

void Fallas::matarYa() {
  apagado_ = true;
  if (morir) morir();
#ifdef SIGKILL
  std::raise(SIGKILL);
#endif
  std::abort();
}

std::unique_ptr<Motor> MotoresConFallas::abrir(const QString& cadena, int espera_ms, ErrorBD& error) {
  if (fallas_.apagado() || fallas_.caido(cadena)) {
    error = {kErrorGeneral, 0, QStringLiteral("El servidor no existe o se ha denegado el acceso al mismo.")};
    return nullptr;
  }
  std::unique_ptr<Motor> real = real_.abrir(cadena, espera_ms, error);
  if (!real) return nullptr;
  return std::make_unique<MotorConFallas>(std::move(real), cadena, fallas_);
}

std::optional<QString> PuertosConFallas::caida(const QString& puerto) const {
  if (!fallas_.apagado() && !fallas_.puertoCaido(puerto)) return {};
  return QStringLiteral("El puerto %1 no está listo.").arg(puerto);
}

std::optional<QString> PuertosConFallas::copiar(const QString& archivo, const QString& puerto) {
  fallas_.anotar(QStringLiteral("PUERTO ") + puerto);
  return fallas_.paso([&] {
    auto error = caida(puerto);
    return error ? error : real_.copiar(archivo, puerto);
  });
}

void PuertosConFallas::enviarSinEsperar(const QString& archivo, const QString& puerto) {
  fallas_.anotar(QStringLiteral("PUERTO ") + puerto);
  fallas_.paso([&] {
    const bool sale = !caida(puerto);
    if (sale) real_.enviarSinEsperar(archivo, puerto);
    return sale;
  });
}

std::optional<QString> PuertosConFallas::imprimir(const QString& impresora, const QString& letra, int tamano,
                                                  const DocumentoImpreso& documento) {
  fallas_.anotar(QStringLiteral("PUERTO ") + impresora);
  return fallas_.paso([&]() -> std::optional<QString> {
    if (auto error = caida(impresora)) return error;
    for (const ImpresoraSistema& i : real_.impresoras()) {
      if (i.nombre.compare(impresora, Qt::CaseInsensitive) != 0) continue;
      if (auto error = caida(i.puerto)) return error;
    }
    return real_.imprimir(impresora, letra, tamano, documento);
  });
}
