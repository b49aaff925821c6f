#pragma once
#include "credit/operacion_paralela_consulta.h"
#include "platform/ui/forma.h"

class Lista;
class QComboBox;
struct Puesto;

// Lists the parallel documents of the store. Stays open beside the main window.
class frmOperacionParalelaConsulta final : public Forma {
  Q_OBJECT
 public:
  explicit frmOperacionParalelaConsulta(Puesto& p, QWidget* padre = nullptr);

 protected:
  bool alEntrar(QWidget* campo) override;

 private:
  void buscar();
  void cargarLineas();

  Puesto& p_;
  OperacionParalelaConsulta v_;
  QComboBox *cboTipoVenta_ = nullptr, *cboEstado_ = nullptr;
  Campo *desde_ = nullptr, *hasta_ = nullptr;
  Lista *operaciones_ = nullptr, *productos_ = nullptr;
};
