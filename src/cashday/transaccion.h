#pragma once
#include <optional>

#include "platform/sql/conexion.h"

// The statements of one transaction, which begins here. After the first that fails nothing more is run. No box is shown
// before its end: while one stands, timers of the desk run. There must be no open transaction.
class Lote {
 public:
  explicit Lote(Conexion& cnn);

  void ejecutar(const QString& sql);
  // Empty after a failure.
  Recordset consultar(const QString& sql);
  // The first cell as a number; 0 for Null.
  double numero(const QString& sql);
  // Ends it: all of it stands, or nothing does and the words of the failure come back. To be called once, last.
  [[nodiscard]] std::optional<QString> terminar();

 private:
  void anotar(const std::optional<ErrorBD>& e, const QString& sql);

  Conexion& cnn_;
  std::optional<QString> fallo_;
};
