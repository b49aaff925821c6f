#pragma once
// What a play writes, and the person at the desk that answers from it.
#include <deque>
#include <functional>

#include "platform/io/mensajes.h"
#include "platform/io/salida.h"

// Lines to standard output in UTF-8, each flushed at once.
class EscritorGuion {
 public:
  enum class Detalle { Todo, SinOk };  // SinOk: for a reader who wants to know what happened, not that all went well

  explicit EscritorGuion(Detalle detalle = Detalle::Todo) : detalle_(detalle) {}
  void linea(const QString& texto);
  // An action is over.
  void ok();

 private:
  Detalle detalle_;
};

// Ends the process at once: no unwinding through the event loops that may be open.
[[noreturn]] void terminarGuion(int estado);

// The till ends itself: writes "fin STATUS" and ends with that status.
class SalidaGuion final : public Salida {
 public:
  explicit SalidaGuion(EscritorGuion& escritor) : escritor_(escritor) {}
  [[noreturn]] void terminar(int estado) override;

 private:
  EscritorGuion& escritor_;
};

// Answers each box with the next queued answer, or with its default button when that answer names no button of this
// box (it then stays for a later one) or none is queued. Writes "caja|TITLE|TEXT|ANSWER" for each box.
class PersonaDeGuion final : public Mensajes {
 public:
  explicit PersonaDeGuion(EscritorGuion& escritor) : escritor_(escritor) {}

  // Queues an answer: "Sí" ("Si"), "No", "Aceptar" or "Cancelar", in any case. False for any other word. `texto` is
  // what is typed into an input box; without one its default text stands.
  bool encolar(const QString& boton, const std::optional<QString>& texto);
  // Shows what a long step is doing, "" when it is over.
  std::function<void(const QString& que)> alOcuparse;

  // Boxes of a program that is being closed are refused where they can be, and not written.
  void callar(bool callada) { callada_ = callada; }

  void mostrar(const QString& texto, const QString& titulo, Icono icono) override;
  bool preguntar(const QString& texto, const QString& titulo, bool siPorDefecto) override;
  std::optional<QString> pedir(const QString& texto, const QString& titulo, const QString& porDefecto) override;

 protected:
  void mostrarOcupado(const QString& que) override {
    if (alOcuparse) alOcuparse(que);
  }

 private:
  enum class Boton { Si, No, Aceptar, Cancelar };
  struct Respuesta {
    Boton boton;
    std::optional<QString> texto;
  };
  static QString nombre(Boton b);
  // Answers and writes one box with the buttons `botones`, the first of them the default.
  Respuesta caja(const QString& texto, const QString& titulo, std::initializer_list<Boton> botones);

  EscritorGuion& escritor_;
  std::deque<Respuesta> cola_;
  bool callada_ = false;
};
