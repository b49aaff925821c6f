#pragma once
#include "platform/ui/forma.h"

// Name and version of the program.
class frmAcercaDe final : public Forma {
  Q_OBJECT
 public:
  explicit frmAcercaDe(QWidget* padre);
};
