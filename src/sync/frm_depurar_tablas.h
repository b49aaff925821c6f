#pragma once
#include <functional>
#include <optional>

#include "platform/ui/forma.h"
#include "sync/depurar_tablas.h"

class QCheckBox;
class QDateEdit;

// Empties the store of chosen days; what follows from it is the caller's.
class frmDepurarTablas final : public Forma {
  Q_OBJECT
 public:
  // `supervisor` asks for one and tells whether there is one.
  frmDepurarTablas(Puesto& p, std::function<bool()> supervisor, QWidget* padre);
  bool porSincronizar() const { return porSincronizar_; }

 private:
  void depurar();

  Puesto& p_;
  std::function<bool()> supervisor_;
  QDateEdit *desde_, *hasta_;
  QCheckBox *teclado_, *producto_;
  bool porSincronizar_ = false;
};
