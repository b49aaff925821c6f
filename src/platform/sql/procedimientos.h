#pragma once
// What an embedded server offers beside its tables: procedures (`exec dbo.p 'a', -1`) and functions used inside a
// statement (`dbo.f()`), both written in C++ and found by name without regard to case or owner.
#include <QDateTime>
#include <QHash>
#include <QVariant>
#include <functional>
#include <optional>

#include "platform/sql/error_bd.h"
#include "platform/sql/recordset.h"

// The engine as a procedure reaches it: SQLite's own language, values bound to ? in their order. Dates are passed and
// kept as ISO text.
class AccesoMotor {
 public:
  virtual ~AccesoMotor() = default;
  virtual std::optional<ErrorBD> consultar(const QString& sql, const QVariantList& valores, Recordset& rs) = 0;
  virtual std::optional<ErrorBD> ejecutar(const QString& sql, const QVariantList& valores = {},
                                          qint64* afectadas = nullptr) = 0;
  virtual QDateTime ahora() const = 0;
};

// Arguments are qint64, double, QString or Null, as the call has them. What a procedure leaves in `rs` is its result;
// one that gives an error leaves no change: each call is a transaction, or a part of the one that is open.
using Procedimiento =
    std::function<std::optional<ErrorBD>(AccesoMotor&, const QVariantList& argumentos, Recordset& rs)>;
using FuncionServidor =
    std::function<std::optional<ErrorBD>(AccesoMotor&, const QVariantList& argumentos, QVariant& valor)>;

class Procedimientos {
 public:
  void agregar(const QString& nombre, const Procedimiento& p) { procedimientos_.insert(nombre.toLower(), p); }
  void agregarFuncion(const QString& nombre, const FuncionServidor& f) { funciones_.insert(nombre.toLower(), f); }
  const Procedimiento* procedimiento(const QString& nombre) const { return buscar(procedimientos_, nombre); }
  const QHash<QString, FuncionServidor>& funciones() const { return funciones_; }

 private:
  template <class T>
  static const T* buscar(const QHash<QString, T>& de, const QString& nombre) {
    const auto i = de.constFind(nombre.toLower());
    return i == de.constEnd() ? nullptr : &*i;
  }
  QHash<QString, Procedimiento> procedimientos_;
  QHash<QString, FuncionServidor> funciones_;
};

// The procedure that `sql` calls: exec dbo.p 'a', -1 or dbo.p 'a' or p 'a'. Nothing when it is no call.
struct Llamada {
  QString nombre;
  QVariantList argumentos;
  std::optional<ErrorBD> error;  // a call whose arguments can't be read
};
std::optional<Llamada> leerLlamada(const QString& sql);
