#include "foundation/mantenimiento.h"

#include "foundation/puesto.h"
#include "foundation/transaccion.h"

QString TituloDetalle(ModoDetalle modo, const QString& nombre) {
  switch (modo) {
    case ModoDetalle::Nuevo: return QStringLiteral("Nuevo ") + nombre;
    case ModoDetalle::Editar: return QStringLiteral("Editar ") + nombre;
    case ModoDetalle::Borrar: return QStringLiteral("Borrar ") + nombre;
    case ModoDetalle::Ver: break;
  }
  return nombre;
}

bool Comprobar(Puesto& p, std::initializer_list<Comprobacion> comprobaciones, QString& campoMal) {
  campoMal.clear();
  for (const Comprobacion& c : comprobaciones) {
    if (!c.mal) continue;
    campoMal = QString::fromUtf16(c.campo);
    p.mensajes.mostrar(QString::fromUtf16(c.aviso), c.titulo);
    return false;
  }
  return true;
}

bool GuardarPorModo(Puesto& p, ModoDetalle modo, const SentenciasDetalle& s) {
  switch (modo) {
    case ModoDetalle::Nuevo: return EjecutarConAviso(p, s.insertar);
    case ModoDetalle::Editar: return EjecutarConAviso(p, s.cambiar);
    case ModoDetalle::Borrar: return EjecutarConAviso(p, s.borrar);
    case ModoDetalle::Ver: break;
  }
  return true;
}

bool LeerFilaDetalle(Puesto& p, const Sql& sql, const QString& falta, Recordset& rs) {
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, sql, rs)) return false;
  if (!rs.Eof()) return true;
  p.mensajes.mostrar(falta);
  return false;
}

bool EjecutarConAviso(Puesto& p, const Sql& sql) {
  const auto error = p.poCnnLocal.ejecutar(sql);
  if (error) p.mensajes.mostrar(error->descripcion + QStringLiteral(" - ") + sql.texto(p.poCnnLocal.dialecto()));
  return !error;
}

bool EnTransaccion(Puesto& p, const std::function<bool()>& pasos) {
  bool dicho = false;  // a step that gives false has shown why
  const auto error = EnTransaccion(p.poCnnLocal, [&]() -> std::optional<ErrorBD> {
    dicho = !pasos();
    if (dicho) return ErrorBD{};
    return {};
  });
  if (error && !dicho) p.mensajes.mostrar(error->descripcion);
  return !error;
}

bool PreguntarActivar(Puesto& p, bool activa, const QString& nombre) {
  return p.mensajes.preguntar(QStringLiteral("Se procederá a ") +
                                  (activa ? QStringLiteral("desactivar") : QStringLiteral("activar")) +
                                  QStringLiteral(" a ") + nombre + QStringLiteral(". Desea continuar?"),
                              Mensajes::kTitulo, false);
}
