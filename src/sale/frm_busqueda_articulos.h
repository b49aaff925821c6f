#pragma once
#include <array>
#include <optional>

#include "platform/ui/forma.h"
#include "sale/buscador.h"

class Lista;
class QLabel;
class QPushButton;
struct Puesto;

// The search screen, for articles, customers and parallel documents.
class frmBusquedaArticulos final : public Forma {
  Q_OBJECT
 public:
  // `texto` stands in txtBuscar from the start. With `soloVer` nothing can be chosen.
  frmBusquedaArticulos(Puesto& p, TipoBusqueda tipo, const QString& texto, bool soloVer, QWidget* padre = nullptr);

  // The row chosen, once the screen was accepted.
  const FilaBusqueda& elegida() const { return elegida_; }

 protected:
  bool alEntrar(QWidget* campo) override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 private:
  QWidget* nuevoFiltro();
  QWidget* nuevoPie();
  void buscar();
  void paginar(Paginado a);
  void seleccionar();
  void mostrar();

  Puesto& p_;
  Busqueda b_;
  FilaBusqueda elegida_;
  Campo *txtBuscar_ = nullptr, *txtNroPagina_ = nullptr;
  Lista* lista_ = nullptr;
  QPushButton* seleccionar_ = nullptr;
  std::array<QPushButton*, 4> cmdPaginado_{};
};

// Shows the search over `padre`. The row chosen; nothing when the screen was left in any other way.
std::optional<FilaBusqueda> elegirEnBusqueda(Puesto& p, QWidget* padre, TipoBusqueda tipo, const QString& texto = {},
                                             bool soloVer = false);
