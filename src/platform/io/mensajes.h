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

 protected:
  // What a long step is doing is to be seen at once, over a painted window; "" takes it away. What was pressed and
  // clicked meanwhile is dropped then. Runs no events.
  virtual void mostrarOcupado(const QString& /*que*/) {}

 private:
  friend class Ocupado;
  QString haciendo_;
};

// A long step, for as long as it lives: a report, a closing, a printer or a server that makes the desk wait. One within
// another has the word until it ends.
class Ocupado {
 public:
  Ocupado(Mensajes& mensajes, const QString& que) : mensajes_(mensajes), antes_(mensajes.haciendo_) { ahora(que); }
  ~Ocupado() { ahora(antes_); }
  Ocupado(const Ocupado&) = delete;
  Ocupado& operator=(const Ocupado&) = delete;

  // The step has come to this; "" while it waits for the person.
  void ahora(const QString& que) {
    mensajes_.haciendo_ = que;
    mensajes_.mostrarOcupado(que);
  }

 private:
  Mensajes& mensajes_;
  QString antes_;
};
