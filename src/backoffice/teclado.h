#pragma once
// Which article stands on which of the 24 function keys of the quick register.
#include <QString>
#include <array>

struct Puesto;

constexpr int kTeclasConfigurables = 24;

// A key as it is drawn.
struct TeclaMostrada {
  bool asignada = false;
  QString rotulo;
};

// The screen "Configurar Botones y Productos": texts as shown.
struct ConfiguraBotonProducto {
  std::array<TeclaMostrada, kTeclasConfigurables + 1> cmdTecla;  // by key number; 0 isn't used
  int tecla = 0;                                                 // the key that is being configured; 0 for none
  QString txtBoton;                                              // "DEP 5"
  QString txtTecla;                                              // "F5", "Shift+F1"
  QString txtCodigoProducto;                                     // as typed; blank for a free key
  QString txtNombreProducto;
};

// "F1" to "F12", "Shift+F1" to "Shift+F12".
QString NombreTeclaRegistro(int tecla);

// All keys with their articles of psAlmacen. False when they can't be read; the message has been shown.
[[nodiscard]] bool CargarTeclas(Puesto& p, ConfiguraBotonProducto& v);

// Makes `tecla` the one that is configured and shows what is assigned to it. False when it can't be read; the message
// has been shown.
[[nodiscard]] bool ElegirTecla(Puesto& p, ConfiguraBotonProducto& v, int tecla);

// The article of psAlmacen with the code that stands in txtCodigoProducto; its name is shown, none when there is no
// such article.
void MostrarProductoDeTecla(Puesto& p, ConfiguraBotonProducto& v);

// Assigns txtCodigoProducto to the key, nothing when it is blank. An article that only another warehouse has is moved
// here first. False when nothing was changed: no key was chosen, there is no such article, or the store refused; a
// box has told it.
[[nodiscard]] bool GrabarTecla(Puesto& p, ConfiguraBotonProducto& v);
