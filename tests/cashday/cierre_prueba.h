#pragma once
// A desk with a day's sales behind it, and what its closing must leave.
#include "apoyo/golden.h"
#include "cashday/cierre.h"
#include "cashday/cuadre.h"
#include "cashday/pantallas_guion.h"
#include "cashday/principal.h"

// Two articles on a boleta of 41.50, an order of 57.00.
class DiaVendido : public PuestoPrueba {
 public:
  explicit DiaVendido(const Envolver& envolver = {}) : PuestoPrueba(envolver) {
    ejecutarArchivo(*this, "golden/cierre/dia.sql");
  }

  int paso() { return filas("SELECT iCierreCaja FROM Configuracion").toInt(); }
  // All that a closing stores as totals: the sales once, whatever happened on the way.
  QString totales() {
    return filas("SELECT prn, idz, Imac FROM _Tmp1 ORDER BY prn") + u'/' +
           filas("SELECT idz, tvd, prn FROM _Tmp ORDER BY prn") + u'/' +
           filas("SELECT IdZ, CantidadTotal, MontoTotal, cOperIdIni, cOperIdPIni, cOperIdPFin FROM CabeceraZ") + u'/' +
           filas("SELECT nItem, CodProd, Cantidad FROM DetalleZ ORDER BY nItem");
  }
  // No row is lost and none is left open; the marks stand at the last of them.
  QString cerradas() {
    return filas("SELECT COUNT(*) FROM Operacion WHERE cOperTipo < 10") + u'/' +
           filas("SELECT COUNT(*) FROM Operacion WHERE cOperFlagAbierto = 1") + u'/' +
           filas("SELECT COUNT(*) FROM OperacionParalela WHERE cOperFlagAbierto = 1") + u'/' +
           filas("SELECT COUNT(*) FROM Configuracion WHERE cOperId = (SELECT MAX(cOperID) FROM Operacion) AND cOperIdP "
                 "= 1");
  }
};

inline const QString kTotalesDelDia =
    QStringLiteral("1|1|41.5\n2|1|98.5/1|41.5|1\n1|98.5|2/1|6|98.5|0|0|1/1|101|4\n2|102|2");
inline const QString kDiaCerrado = QStringLiteral("3/0/0/1");

// Authorises, and runs the cash count as its window does.
struct PantallasCierre : PantallasGuion {
  explicit PantallasCierre(Puesto& puesto) : p(puesto) { supervisor = QStringLiteral("SUPERVISOR"); }
  void cuadreDeCaja(Principal& v, ModoCuadre modo) override {
    PantallasGuion::cuadreDeCaja(v, modo);
    Cuadre c;
    Inicio(p, c, modo);
    CargarCuadre(p, c);
    if (v.bReporteImpreso) Imprimir(p, c);
  }
  Puesto& p;
};

// Says yes to what the closing asks; its boxes are kept.
struct PersonaQueCierra final : Mensajes {
  QStringList cajas;
  void mostrar(const QString& texto, const QString&, Icono) override { cajas << texto; }
  bool preguntar(const QString&, const QString&, bool) override { return true; }
  std::optional<QString> pedir(const QString&, const QString&, const QString& d) override { return d; }
};
