#pragma once
// The first start in a folder without a desk: what the dialog asks, checked and made. Without its window.
#include <QString>

struct Puesto;

struct PrimerInicio {
  QString txtCaja = QStringLiteral("00001"), txtAlmacen = QStringLiteral("01"), txtServicio = QStringLiteral("10");
  QString txtCentral = QStringLiteral("sqlite:central.db"), txtBaseCentral = QStringLiteral("central");
  QString txtUsuarioCentral, txtClaveCentral;
  QString txtCliente = QStringLiteral("sqlite:cliente.db"), txtBaseCliente = QStringLiteral("cliente");
  QString txtUsuarioCliente, txtClaveCliente;
  QString txtUsuario = QStringLiteral("SUPERVISOR"), txtPassword, txtReingresarPassword;
  bool chkAutoarranque = false;  // the till opens with the session of the machine
};

// Whether the desk's folder holds neither a store nor settings.
bool FaltaElPuesto(const Puesto& p);

// Makes the desk. False when a text was refused or the folder can't be written: a box has told it, nothing was made,
// and `foco` names the field to put right ("" when it is none of them).
[[nodiscard]] bool CrearPrimerPuesto(Puesto& p, const PrimerInicio& v, QString& foco);

// One box that tells of each server whether it can be reached as entered. An embedded one that is missing will be made.
void ProbarServidores(Puesto& p, const PrimerInicio& v);
