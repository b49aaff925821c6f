#include "admin/argumentos.h"

std::optional<QString> LeerArgumentos(const QStringList& palabras, const FormaOrden& forma, Argumentos& a) {
  for (int i = 0; i < palabras.size(); ++i) {
    const QString& palabra = palabras[i];
    if (!palabra.startsWith(u"--")) {
      a.lugares << palabra;
      continue;
    }
    const QString nombre = palabra.section(u'=', 0, 0);
    const bool conIgual = palabra.contains(u'=');
    if (a.tiene(nombre)) return QStringLiteral("La opción %1 está dos veces.").arg(nombre);
    if (forma.interruptores.contains(nombre)) {
      if (conIgual) return QStringLiteral("La opción %1 no lleva valor.").arg(nombre);
      a.opciones.insert(nombre, {});
    } else if (forma.conValor.contains(nombre)) {
      if (!conIgual && (i + 1 >= palabras.size() || palabras[i + 1].startsWith(u"--"))) {
        return QStringLiteral("Falta el valor de la opción %1.").arg(nombre);
      }
      a.opciones.insert(nombre, conIgual ? palabra.section(u'=', 1) : palabras[++i]);
    } else {
      return QStringLiteral("No existe la opción %1.").arg(nombre);
    }
  }
  if (a.lugares.size() < forma.lugaresMinimo) return QStringLiteral("Faltan argumentos.");
  if (a.lugares.size() > forma.lugaresMaximo) {
    return QStringLiteral("Sobra el argumento «%1».").arg(a.lugares[forma.lugaresMaximo]);
  }
  return {};
}
