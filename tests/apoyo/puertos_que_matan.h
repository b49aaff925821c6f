#pragma once
// The real ports of a desk's folder, whose writes take part in a plan's count and may kill the process.
#include "apoyo/motor_que_falla.h"
#include "platform/io/puertos_sistema.h"

class PuertosQueMatan : public Puertos {
 public:
  PuertosQueMatan(const QString& carpeta, PlanFallas& plan) : real_(carpeta), plan_(plan) {}
  std::optional<QString> copiar(const QString& archivo, const QString& puerto) override {
    ++plan_.van;
    plan_.sentencias << QStringLiteral("PUERTO ") + puerto;
    if (plan_.toca() && plan_.muerte == Muerte::antes) std::raise(SIGKILL);
    const auto e = real_.copiar(archivo, puerto);
    if (plan_.toca() && plan_.muerte == Muerte::despues) std::raise(SIGKILL);
    return e;
  }
  void enviarSinEsperar(const QString& archivo, const QString& puerto) override { copiar(archivo, puerto); }
  QList<ImpresoraSistema> impresoras() override {
    return {{QStringLiteral("Ticketera"), QStringLiteral("LPT1")}, {QStringLiteral("Alterna"), QStringLiteral("LPT2")}};
  }
  QString impresoraPorDefecto() override { return real_.impresoraPorDefecto(); }
  std::optional<QString> imprimir(const QString& i, const QString& l, int t, const DocumentoImpreso& x) override {
    return real_.imprimir(i, l, t, x);
  }

 private:
  PuertosSistema real_;
  PlanFallas& plan_;
};
