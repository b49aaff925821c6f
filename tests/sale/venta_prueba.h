#pragma once
// A desk with a full register on it, whose supervisor is scripted.
#include <gtest/gtest.h>

#include <map>

#include "apoyo/puesto_prueba.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"
#include "sale/caja_full.h"
#include "sale/caja_full_commit.h"
#include "sale/caja_full_totales.h"
#include "sale/pantallas_guion.h"

inline FilaVenta filaVenta(int codigo, const QString& descripcion, double precio, int cantidad = 1,
                           double porcentaje = 0, const QString& signo = QStringLiteral("-"), bool servicio = false) {
  FilaVenta f;
  f[kCod] = Ceros(QString::number(codigo), 6);
  f[kDescripcion] = descripcion;
  f[kPrecio] = Formatear(precio, u"0.00");
  f[kCant] = Formatear(cantidad, u"0.00");
  f[kSigno] = signo;
  f[kPorc] = Formatear(porcentaje, u"0.00");
  f[kCanje] = QStringLiteral("VNTA");
  f[kConServ] = servicio ? QStringLiteral("SI") : QStringLiteral("NO");
  return f;
}

// A desk whose shop has a points rule, as every one has.
class PuestoDeVenta : public PuestoPrueba {
 public:
  explicit PuestoDeVenta(const Envolver& envolver = {}) : PuestoPrueba(envolver) {
    const QString regla =
        QStringLiteral("INSERT INTO Regla_Punto (nImpoMaxi, nPuntImpo, nPuntCant) VALUES (1000,10,1)");
    ejecuta(regla);
    EXPECT_TRUE(poDBAdmin.AbrirBD(poCnnCliente, ses.psConexionCliente));
    ejecuta(poCnnCliente, regla);
    poDBAdmin.CerrarBD(poCnnCliente);
  }
};

inline QByteArray pulsoGaveta() { return QByteArray("\x1B\x70\x00\x19\xFA\r\n", 7); }
