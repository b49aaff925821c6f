#pragma once
// A desk with stored documents of which the supervisor voids one.
#include <gtest/gtest.h>

#include "apoyo/plan_fallas.h"
#include "apoyo/puesto_prueba.h"
#include "voiding/anulacion.h"
#include "voiding/pantallas_anulacion.h"

struct JefeGuion final : PantallasAnulacion {
  QString nombre = QStringLiteral("JEFE");  // "" refuses
  std::optional<QString> autorizar(const QString&) override {
    return nombre.isEmpty() ? std::nullopt : std::optional(nombre);
  }
};

struct PuestoConDocumentos : PuestoPrueba {
  explicit PuestoConDocumentos(const Envolver& envolver = {}) : PuestoPrueba(envolver) {
    articulo(101, QStringLiteral("Cafe"), 4.5);
    articulo(102, QStringLiteral("Torta"), 12);
    ejecuta(QStringLiteral("INSERT INTO Tipo_Cambio (dTipoCambFech, nTipoCambMont) VALUES (#11/24/2026#, 3.5)"));
  }
  JefeGuion jefe;

  // A row of Operacion; 0 as article is the tender row, whose price is the change.
  void fila(int codigo, int tipo, const char* doc, int numero, int articulo, double cantidad, double precio,
            double soles = 0, int anula = 0, const char* mas = "'', Null, 0, 0") {
    ejecuta(QStringLiteral("INSERT INTO Operacion (cOperCode, cOperTipo, cDocTipo, cDocSerie, cDocCodigo, cAlmaCode, "
                           "cProdCode, nProdCant, nProdPrecUnit, nMontoSoles, cOperCodeAnula, dOperFech, cUserDesc, "
                           "cCajaCodi, cTurnoCodi, nTarjNumb, IdLocal, nDscto, nServicio) VALUES (%1, %2, '%3', '001', "
                           "%4, '01', %5, %6, %7, %8, %9, '24/11/2026 09:15', 'ANA', '00001', '01', ")
                .arg(codigo)
                .arg(tipo)
                .arg(QLatin1String(doc))
                .arg(numero)
                .arg(articulo)
                .arg(cantidad)
                .arg(precio)
                .arg(soles)
                .arg(anula) +
            QLatin1String(mas) + u')');
  }
  void paralela(int codigo, int tipo, const char* doc, const char* estado, int relacion = 0) {
    ejecuta(
        QStringLiteral("INSERT INTO OperacionParalela (cOperCode, cOperTipo, cDocTipo, cDocSerie, cDocCodigo, "
                       "cEstado, cOperCodeRela, dOperFech, nMoneda, nMontoSoles, nMontoDolares) VALUES (%1, %2, "
                       "'%3', '%4', %1, '%5', %6, '24/11/2026 09:15', 2, 105, 30)")
            .arg(codigo)
            .arg(tipo)
            .arg(QLatin1String(doc), tipo == 20 ? QStringLiteral("OC1") : QStringLiteral("XX1"), QLatin1String(estado))
            .arg(relacion));
  }

  // Loads the document by its code on a new screen and presses the button.
  PantallaTransaccion anular(int codigo, bool alterno = false) {
    PantallaTransaccion v;
    v.chkAlterno = alterno;
    v.txtTransaccion = QString::number(codigo);
    BuscarTransaccion(*this, v);
    if (v.cargada) Anular(*this, v, jefe);
    return v;
  }
  QString todo() {
    return filas(QStringLiteral("SELECT cOperCode, cOperTipo, cDocTipo, cProdCode, nProdCant, cOperFlagAnula, "
                                "cOperCodeAnula FROM Operacion ORDER BY cOperID")) +
           u'\n' +
           filas(QStringLiteral("SELECT cOperCode, cOperTipo, cEstado, cOperCodeRela, cOperCodeAnul, sGlosa FROM "
                                "OperacionParalela ORDER BY cOperCode"));
  }
};
