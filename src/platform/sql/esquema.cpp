#include "platform/sql/esquema.h"

QStringList sentenciasDeEsquema(const QString& texto) {
  QStringList sentencias;
  QString actual;
  for (QString linea : texto.split(u'\n')) {
    if (const auto comentario = linea.indexOf(u"--"); comentario >= 0) linea.truncate(comentario);
    linea = linea.trimmed();
    if (linea.isEmpty()) continue;
    const bool fin = linea.endsWith(u';');
    if (fin) linea.chop(1);
    actual += (actual.isEmpty() ? QString() : QStringLiteral("\n  ")) + linea;
    if (!fin) continue;
    sentencias << actual.replace(QStringLiteral(" TEXT"), QStringLiteral(" TEXT COLLATE NOCASE"));
    actual.clear();
  }
  return sentencias;
}

std::optional<ErrorBD> EjecutarEsquema(Conexion& cnn, const QStringList& sentencias) {
  for (const QString& sql : sentencias) {
    if (auto error = cnn.ejecutar(Sql::crudo(sql))) return error;
  }
  return {};
}
