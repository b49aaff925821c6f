#pragma once
#include <QString>

// Words of the shop on its papers, section [PAPELES] of the settings file; what stands not there keeps these.
struct TextosPapel {
  QString Lema = QStringLiteral("...LA FINCA ALDEBRA ES EL LUGAR!!!");  // ends the paper of a sale
  QString Tienda;                                                       // heads a withdrawal; "" for no such line
  QString TituloRetiro = QStringLiteral("PAGO");
  QString TituloCuadre = QStringLiteral("CUADRE CAJA");
  QString TituloCuadreZ1 = QStringLiteral("CUADRE CAJA Z1");
};

// As the file has them, each cut to the 39 letters of a line.
TextosPapel LeerTextosPapel(const QString& archivo);
