#include "credit/acto_credito.h"

#include "foundation/puesto.h"

ErrorBD RechazoDelActo(const QString& palabras) { return {kErrorGeneral, 0, palabras}; }

// Anew each time: one that was left open may be dead.
bool AbrirCentralDelActo(Puesto& p) {
  CerrarCentral(p);
  return p.poDBAdmin.AbrirBD(p.poCnnCentral, p.ses.psConexionCentral, true);
}

void CerrarCentral(Puesto& p) {
  if (p.poCnnCentral.abierta()) p.poDBAdmin.CerrarBD(p.poCnnCentral);
}

FinCredito HacerActo(Puesto& p, const QString& que, const std::function<std::optional<ErrorBD>(ActoDoble&)>& preparar) {
  ActoDoble acto;
  acto.servidor = ServidorActo::Central;
  acto.orden = ActoDoble::LocalPrimero;
  acto.preparar = preparar;
  const ResultadoActo r = [&] {
    const Ocupado ocupado(p.mensajes, QStringLiteral("Grabando en esta caja y en la central…"));
    return EjecutarActo(p, acto);
  }();
  CerrarCentral(p);
  switch (r.fin) {
    case FinActo::Entero: return FinCredito::Hecho;
    case FinActo::Nada: p.mensajes.mostrar(r.error.descripcion); return FinCredito::Nada;
    case FinActo::EnDuda:
      // The store did not answer in its commit, and not when it was asked about it: the screen is kept.
      p.mensajes.mostrar(r.error.descripcion + QStringLiteral("\nRevise si quedó registrado antes de repetirlo: ") +
                         que + u'.');
      return FinCredito::Nada;
    case FinActo::Pendiente: break;
  }
  p.registro.RegistrarErrorLog(que + QStringLiteral(" quedó por completar en la central: ") + r.error.descripcion);
  p.mensajes.mostrar(QStringLiteral("La base de datos central dejó de responder al terminar: ") + que +
                     QStringLiteral(".\nYa está en esta caja y llegará a la central en cuanto responda. No lo registre "
                                    "otra vez; entonces podrá imprimirlo con Reimprimir."));
  return FinCredito::Pendiente;
}
