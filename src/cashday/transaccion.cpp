#include "cashday/transaccion.h"

#include "foundation/db_admin.h"

Lote::Lote(Conexion& cnn) : cnn_(cnn) { anotar(cnn_.iniciar(), {}); }

void Lote::ejecutar(const QString& sql) {
  if (!fallo_) anotar(cnn_.ejecutar(sql), sql);
}

Recordset Lote::consultar(const QString& sql) {
  Recordset rs;
  if (!fallo_) anotar(cnn_.consultar(sql, rs), sql);
  return rs;
}

double Lote::numero(const QString& sql) {
  const Recordset rs = consultar(sql);
  return Numero(rs[0]);
}

std::optional<QString> Lote::terminar() {
  if (!fallo_) anotar(cnn_.confirmar(), {});
  if (fallo_) (void)cnn_.deshacer();
  return fallo_;
}

void Lote::anotar(const std::optional<ErrorBD>& e, const QString& sql) {
  if (e) fallo_ = sql.isEmpty() ? e->descripcion : e->descripcion + QStringLiteral(" - ") + sql;
}
