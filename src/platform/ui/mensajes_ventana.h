#pragma once
#include "platform/io/mensajes.h"
#include "platform/ui/cartel_ocupado.h"

class QWidget;

// Boxes on the screen, over the window that is active. Needs a QApplication with the theme on.
class MensajesVentana final : public Mensajes {
 public:
  void mostrar(const QString& texto, const QString& titulo = kTitulo, Icono icono = Icono::Informacion) override;
  bool preguntar(const QString& texto, const QString& titulo = kTitulo, bool siPorDefecto = true) override;
  std::optional<QString> pedir(const QString& texto, const QString& titulo = kTitulo,
                               const QString& porDefecto = {}) override;

 protected:
  void mostrarOcupado(const QString& que) override { cartel_.mostrar(que); }

 private:
  CartelOcupado cartel_;
};
