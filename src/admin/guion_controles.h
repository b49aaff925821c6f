#pragma once
// What a person does to one control. All throw ErrorGuion when it cannot be done; the caller has made sure that the
// control is visible and enabled.
#include "admin/guion_pantallas.h"

class QAbstractItemView;

// The keyboard and the selection of all text. A control that nothing can be typed into is refused.
void darFocoParaEscribir(const ControlGuion& c);
void pulsarControl(const ControlGuion& c);
void marcarControl(const ControlGuion& c, bool si);
// Row from 1.
void pulsarFila(QAbstractItemView& lista, const QString& nombre, int fila, bool doble);
// The entry of that text in a drop-down list, a list (its first row with a cell of that text) or the tabs.
void elegirEntrada(const ControlGuion& c, const QString& texto);
// Makes a cell current, ready to be typed over; `vaciar` opens it with nothing in it. Row from 1, column from 0.
void irACelda(QAbstractItemView& rejilla, const QString& nombre, int fila, int columna, bool vaciar);
