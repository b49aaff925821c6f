#pragma once
// The functions of the dialects: what each is called in the engine and what type it gives.
#include <QStringView>

#include "platform/sql/token.h"

enum class Resultado { Entero, Numero, Real, Texto, Fecha, Logico, DelPrimero, DelSegundo, Comun, Suma };

struct ReglaFuncion {
  QStringView nombre;
  bool jet, tsql;
  int minimo, maximo;  // arguments; a call with others passes on as it is
  QStringView nuevo;   // "" keeps the name
  Resultado resultado;
  // Intervalo: the first argument names a part of a date. Eleccion: a CASE in the engine.
  enum Forma { Llana, PrimeroTexto, Intervalo, Eleccion } forma = Llana;
};

// The rule of a call, null when there is none.
const ReglaFuncion* reglaDeFuncion(QStringView nombre, int argumentos, Dialecto dialecto);
