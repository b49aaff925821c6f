#pragma once
#include <QString>

// Where the desk's files lie. No other code builds such a path.
struct Rutas {
  QString programa;  // program folder, without a separator at its end
  QString temp;      // "C:\Temp\" of the desk, without a separator at its end

  QString enPrograma(const QString& nombre) const { return programa + u'/' + nombre; }
  QString enTemp(const QString& nombre) const { return temp + u'/' + nombre; }
};

// The folders of the desk whose program folder is `carpeta`.
Rutas rutasDe(const QString& carpeta);
