#pragma once
#include <QStringList>

#include "cashday/pantallas_principal.h"

// Records which screens were asked for; refuses every authorisation unless it has a supervisor.
struct PantallasGuion : PantallasPrincipal {
  QStringList abiertas;
  std::optional<QString> supervisor;
  void abrirRapida() override { abiertas << QStringLiteral("rápida"); }
  void abrirFull() override { abiertas << QStringLiteral("full"); }
  void ventaFutura() override { abiertas << QStringLiteral("futura"); }
  void tipoCambioLista() override { abiertas << QStringLiteral("lista T.C."); }
  void tipoCambioDetalle(int modo) override { abiertas << QStringLiteral("T.C. %1").arg(modo); }
  void mantenimiento(PantallaMantenimiento cual) override {
    abiertas << QStringLiteral("mantenimiento %1").arg(static_cast<int>(cual));
  }
  void cuadreDeCaja(Principal&, ModoCuadre modo) override { abiertas << QStringLiteral("cuadre %1").arg(modo); }
  bool sincronizar(bool diaAnterior) override {
    abiertas << (diaAnterior ? QStringLiteral("sincroniza ayer") : QStringLiteral("sincroniza"));
    return true;
  }
  void rearrancar() override { abiertas << QStringLiteral("rearranca"); }
  std::optional<QString> autorizar(const QString& acto) override {
    abiertas << QStringLiteral("autoriza ") + acto;
    return supervisor;
  }
  void noDisponible(const QString& nombre) override { abiertas << QStringLiteral("falta ") + nombre; }
};
