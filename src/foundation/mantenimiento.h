#pragma once
// What all maintenance screens share: a list with "&Nuevo", "&Editar", "&Borrar" and "&Ver", a detail in one of four
// modes, and the way in which a detail is checked and stored.
#include <QString>
#include <functional>
#include <initializer_list>

#include "platform/io/mensajes.h"
#include "platform/sql/sentencia.h"

struct Puesto;
class Recordset;

enum class ModoDetalle { Nuevo = 0, Editar = 1, Borrar = 2, Ver = 3 };

// "Nuevo Producto", "Editar Producto", "Borrar Producto", "Producto".
QString TituloDetalle(ModoDetalle modo, const QString& nombre);

// In the other two the fields are locked.
inline bool SeEdita(ModoDetalle modo) { return modo == ModoDetalle::Nuevo || modo == ModoDetalle::Editar; }

// One check before a save: the words for a field that is wrong.
struct Comprobacion {
  bool mal;
  const char16_t* campo;
  const char16_t* aviso;
  QString titulo = Mensajes::kTitulo;
};

// Shows the words of the first check that went wrong, and leaves its field in `campoMal`; "" there when all is well.
[[nodiscard]] bool Comprobar(Puesto& p, std::initializer_list<Comprobacion> comprobaciones, QString& campoMal);

// What each mode runs on the store. Viewing runs nothing.
struct SentenciasDetalle {
  Sql insertar, cambiar, borrar;
};

// Runs the statement of the mode. False when the store refused it; its box has been shown.
[[nodiscard]] bool GuardarPorModo(Puesto& p, ModoDetalle modo, const SentenciasDetalle& s);

// Saves a detail: nothing to do in the mode that only views, otherwise `validar` and the statement of the mode, which
// `sentencias` makes. False when the check or the store refused it; the box has been shown and `v.campoMal` names the
// field.
template <class Detalle>
[[nodiscard]] bool GuardarDetalle(Puesto& p, Detalle& v, bool (*validar)(Puesto&, Detalle&),
                                  SentenciasDetalle (*sentencias)(const Puesto&, const Detalle&)) {
  v.campoMal.clear();
  return v.modo == ModoDetalle::Ver || (validar(p, v) && GuardarPorModo(p, v.modo, sentencias(p, v)));
}

// Reads the row of a detail. False when it can't be read (the message has been shown) or is no longer there (a box
// says `falta`).
[[nodiscard]] bool LeerFilaDetalle(Puesto& p, const Sql& sql, const QString& falta, Recordset& rs);

// A statement on the store whose failure is always told, in the engine's words: the plain way stays silent when a row
// with that key exists.
[[nodiscard]] bool EjecutarConAviso(Puesto& p, const Sql& sql);

// Runs `pasos` on the store in one transaction: all that they write, or nothing when they give false or the store fails
// (a box tells the latter).
[[nodiscard]] bool EnTransaccion(Puesto& p, const std::function<bool()>& pasos);

// "Se procederá a desactivar a X. Desea continuar?"; "No" is what Enter presses.
[[nodiscard]] bool PreguntarActivar(Puesto& p, bool activa, const QString& nombre);
