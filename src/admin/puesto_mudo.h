#pragma once
// The parts of a desk that nobody sits at.
#include <QStringList>

#include "platform/io/mensajes.h"
#include "platform/io/reloj.h"
#include "platform/io/salida.h"

// Stands where it was put.
class RelojParado final : public Reloj {
 public:
  QDateTime ahora;
  QDateTime now() const override { return ahora; }
  void dormir(int) override {}
  std::shared_ptr<void> cada(int, std::function<void()>) override { return {}; }
};

// Says yes to every question, and keeps what it was shown.
class PersonaQueAsiente final : public Mensajes {
 public:
  QStringList cajas;
  void mostrar(const QString& texto, const QString&, Icono) override { cajas << texto; }
  bool preguntar(const QString& texto, const QString&, bool) override {
    cajas << texto;
    return true;
  }
  std::optional<QString> pedir(const QString& texto, const QString&, const QString& porDefecto) override {
    cajas << texto;
    return porDefecto;
  }
};

struct ProgramaTerminado {
  int estado = 0;
};
class SalidaComoExcepcion final : public Salida {
 public:
  [[noreturn]] void terminar(int estado) override { throw ProgramaTerminado{estado}; }
};
