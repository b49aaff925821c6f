#pragma once
#include "app/primer_inicio.h"
#include "platform/ui/forma.h"

// Asks for what a new desk needs and makes it. Not modal: exactly one of the two calls comes when it has closed.
class frmPrimerInicio final : public Forma {
  Q_OBJECT
 public:
  frmPrimerInicio(Puesto& p, std::function<void()> hecho, std::function<void()> dejado);

  void done(int resultado) override;

 private:
  Panel* panelServidor(const QString& titulo, const char* sufijo, QString& servidor, QString& base, QString& usuario,
                       QString& clave);
  Campo* campo(Panel* panel, const QString& nombre, const QString& etiqueta, QString& texto, bool secreto = false);
  void crear();
  void probar();

  Puesto& p_;
  std::function<void()> hecho_, dejado_;
  PrimerInicio v_;
  Enlaces enlaces_;
};
