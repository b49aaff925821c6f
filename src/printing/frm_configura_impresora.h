#pragma once
#include <array>

#include "platform/ui/forma.h"
#include "printing/configura_impresora.h"

class QCheckBox;
class QComboBox;

// The desk's two printers and whether each cuts its paper.
class frmConfiguraImpresora final : public Forma {
  Q_OBJECT
 public:
  explicit frmConfiguraImpresora(Puesto& p, QWidget* padre = nullptr);

 private:
  void crearImpresora(int cual);
  void elegida(int cual);
  void aceptar();

  Puesto& p_;
  ConfiguraImpresora v_;
  std::array<QComboBox*, 2> cboImpresora_{};
  std::array<QCheckBox*, 2> corta_{};
};
