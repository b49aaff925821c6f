#pragma once
// The screen "Depuración de Tablas" without its window: empties the store of chosen days.
#include <QDate>
#include <functional>

struct Puesto;

struct FrmDepurarTablas {
  QDate dtpFechaInicial, dtpFechaFinal;  // both of them included
  bool chkTeclado = false, chkProducto = false;
};

// As the screen opens: yesterday to today.
FrmDepurarTablas AbrirDepurarTablas(const Puesto& p);

enum class FinDepurar {
  Nada,   // not confirmed or not allowed: nothing has changed
  Hecho,  // a synchronisation has to follow
  Fallo   // the store refused, and nothing has changed; a synchronisation follows all the same
};

// The button "Depurar". Tells first what stays: rows that the central database has not got and open documents. Asks,
// has it authorised by `supervisor`, and empties the days in one transaction; the last number of each run stays too.
// Master data comes anew with the next synchronisation.
[[nodiscard]] FinDepurar DepurarTablas(Puesto& p, const FrmDepurarTablas& v, const std::function<bool()>& supervisor);
