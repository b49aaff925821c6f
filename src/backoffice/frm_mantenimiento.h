#pragma once
// The bases of the maintenance screens.
#include <array>
#include <optional>

#include "backoffice/mantenimiento.h"
#include "platform/ui/forma.h"
#include "platform/ui/lista.h"

// A list screen: search field, grid, "&Nuevo", "&Editar", "&Borrar", "&Ver", "&Salir", count of rows. A detail that
// saved changes its row in place; the list isn't read again.
class frmMantenimientoLista : public Forma {
  Q_OBJECT
 protected:
  // `lista` becomes the screen's.
  frmMantenimientoLista(const QString& nombre, const QString& titulo, Lista* lista, QWidget* padre);

  // Opens the detail on the row (nothing for a new one) and gives the row to show after a save; nothing when it was
  // left without saving. After a deletion any row will do.
  virtual std::optional<FilaLista> detalle(ModoDetalle modo, const FilaLista* fila) = 0;
  // The selection has changed; -1 when the list is empty.
  virtual void alElegir(int) {}

  Lista& lista() { return *lista_; }
  // A button of the screen's own, below "&Ver".
  QPushButton* agregarBoton(const QString& nombre, const QString& rotulo);

  bool alEntrar(QWidget* campo) override;
  bool eventFilter(QObject* objeto, QEvent* evento) override;

 private:
  void abrir(ModoDetalle modo);
  void actualizar(int fila);
  void buscar(const QString& texto);

  Lista* lista_;
  Campo* buscar_;
  QLabel* cuenta_;
  QVBoxLayout* botones_;
  std::array<QPushButton*, 4> cmdEditar_{};
};

// A detail screen: fields, then "&Aceptar" and "&Cancelar" as cmdEstandar(0) and (1).
class frmMantenimientoDetalle : public Forma {
  Q_OBJECT
 protected:
  frmMantenimientoDetalle(const QString& nombre, ModoDetalle modo, const QString& titulo, QWidget* padre);

  // Checks and stores. True closes the screen; false leaves it open, with `campoMal` marked unless it is "".
  virtual bool guardar(QString& campoMal) = 0;

  Panel& panel() { return *panel_; }
  // After the fields are there: locks them in the modes that don't edit, and puts the keyboard where work begins.
  void listo(QWidget* primero);

 private:
  void aceptar();

  ModoDetalle modo_;
  Panel* panel_;
  QPushButton* aceptar_;
};
