#pragma once
#include <array>

#include "platform/ui/forma.h"
#include "printing/configura_impresora.h"

class QCheckBox;
class QComboBox;

// The desk's two printers: whether each cuts its paper and, if it does, where it hangs and what it understands.
class frmConfiguraImpresora final : public Forma {
  Q_OBJECT
 public:
  explicit frmConfiguraImpresora(Puesto& p, QWidget* padre = nullptr);

 private:
  // The controls of one printer.
  struct Controles {
    QComboBox *impresora = nullptr, *lugar = nullptr, *pagina = nullptr;
    QCheckBox *corta = nullptr, *conOrden = nullptr;
    QPushButton* prueba = nullptr;
  };

  void crearImpresora(size_t n);
  void enlazar(size_t n);
  void elegida(size_t n);
  void mostrar(size_t n);
  void aceptar();

  Puesto& p_;
  ConfiguraImpresora v_;
  std::array<Controles, 2> c_{};
};
