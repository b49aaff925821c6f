#pragma once
#include <QString>
#include <optional>
#include <vector>

class Ocupado;

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
  std::vector<const Ocupado*> ocupados_;  // the last one has the word
};

// A long step, for as long as it lives: a report, a closing, a printer or a server that makes the desk wait. The one
// that began last has the word until it ends, in whatever order they end.
class Ocupado {
 public:
  Ocupado(Mensajes& mensajes, const QString& que) : mensajes_(mensajes) {
    mensajes_.ocupados_.push_back(this);
    ahora(que);
  }
  ~Ocupado() {
    std::erase(mensajes_.ocupados_, this);
    decir();
  }
  Ocupado(const Ocupado&) = delete;
  Ocupado& operator=(const Ocupado&) = delete;

  // The step has come to this; "" while it waits for the person.
  void ahora(const QString& que) {
    que_ = que;
    decir();
  }

 private:
  void decir() { mensajes_.mostrarOcupado(mensajes_.ocupados_.empty() ? QString() : mensajes_.ocupados_.back()->que_); }
  Mensajes& mensajes_;
  QString que_;
};
