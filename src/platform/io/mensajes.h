#pragma once
#include <QString>
#include <optional>

enum class Icono { Informacion, Pregunta, Aviso, Critico };

// The person at the desk. Each call returns when the box has been answered.
class Mensajes {
 public:
  static inline const QString kTitulo = QStringLiteral("TarvoPos");

  virtual ~Mensajes() = default;
  // A box with "Aceptar".
  virtual void mostrar(const QString& texto, const QString& titulo = kTitulo, Icono icono = Icono::Informacion) = 0;
  // A box with "Sí" and "No"; closing it is "No". `siPorDefecto` tells which of the two Enter presses.
  virtual bool preguntar(const QString& texto, const QString& titulo = kTitulo, bool siPorDefecto = true) = 0;
  // An input box with "Aceptar" and "Cancelar"; nothing when it was cancelled.
  virtual std::optional<QString> pedir(const QString& texto, const QString& titulo = kTitulo,
                                       const QString& porDefecto = {}) = 0;
};
