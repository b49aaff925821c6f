#pragma once
#include "platform/io/mensajes.h"

struct Puesto;

// A start that must end: one box, then the process ends with status 1. `queHacer` is two sentences for whoever runs
// the shop, what happened and what to do; the technical words stand below them.
[[noreturn]] void TerminarArranque(Puesto& p, const QString& queHacer, const QString& tecnico,
                                   const QString& titulo = Mensajes::kTitulo);
