#pragma once
// The third tab of the full register: two lists, each with the field and the buttons that fill it.
#include "platform/ui/campo.h"
#include "platform/ui/lista.h"
#include "sale/caja_full.h"

struct PanelLiquidacion {
  QWidget* pestana = nullptr;
  std::array<Lista*, 2> lvwTX{};
  std::array<Campo*, 2> txtTXL{};
  std::array<QPushButton*, 2> cmdTXL{}, CmdAdd{}, CmdDel{};

  // Puts the rows of the lists on the screen where they have changed.
  void mostrar(const CajaRegistradoraFull& v);

 private:
  std::array<std::vector<LineaTX>, 2> mostradas_;
};

PanelLiquidacion nuevoPanelLiquidacion(Enlaces& enlaces, CajaRegistradoraFull& v);
