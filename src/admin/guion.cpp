#include "admin/guion.h"

#include <QDir>

#include "admin/argumentos.h"
#include "admin/guion_acciones.h"
#include "admin/guion_escenario.h"
#include "admin/ordenes.h"
#include "app/aplicacion.h"
#include "app/entorno.h"
#include "platform/io/puertos_sistema.h"
#include "platform/ui/cartel_ocupado.h"

namespace {

// The till.
class CajaDeGuion final : public ProgramaGuion {
 public:
  CajaDeGuion(Motores& m, Puertos& p, Reloj& r, Mensajes& me, Salida& s, const Rutas& rutas)
      : app_(m, p, r, me, s, rutas) {}
  void iniciar() override { app_.iniciar(); }
  void cerrar() override { app_.cerrar(); }
  QString cadenaDe(Fallas::Servidor s) {
    const Sesion& ses = app_.puesto().ses;
    return s == Fallas::Servidor::Central ? ses.psConexionCentral : ses.psConexionCliente;
  }

 private:
  Aplicacion app_;
};

}  // namespace

int tocarGuion(const OpcionesGuion& o, EscritorGuion& escritor, const std::function<void(EscenaGuion&)>& prepara) {
  const QString carpeta = QDir(o.puesto).absolutePath();
  if (!QDir(carpeta).exists()) {
    Quejarse(QStringLiteral("No existe la carpeta del puesto: %1").arg(carpeta));
    return kMalUso;
  }
  RelojGuion reloj;
  CartelOcupado cartel;
  PersonaDeGuion persona(escritor);
  persona.alOcuparse = [&cartel](const QString& que) { cartel.mostrar(que); };
  EntornoSistema entorno(carpeta, [&reloj] { return reloj.now(); });
  Fallas fallas;
  MotoresConFallas motores(*entorno.motores, fallas);
  PuertosConFallas puertos(*entorno.puertos, fallas);
  entorno.avisarEsperas(persona);
  SalidaGuion salida(escritor);
  EscenaGuion escena{escritor, persona, reloj, fallas, QDir(o.salida).absolutePath(), {}};

  CajaDeGuion* caja = nullptr;  // asked only while the scene holds it
  fallas.cadenaDe = [&](Fallas::Servidor s) { return escena.programa ? caja->cadenaDe(s) : QString(); };
  escena.crear = [&] {
    auto nueva = std::make_unique<CajaDeGuion>(motores, puertos, reloj, persona, salida, entorno.rutas);
    caja = nueva.get();
    return nueva;
  };
  if (prepara) prepara(escena);
  return tocarEscena(o.guion, escena);
}

int ordenGuion(const QStringList& palabras) {
  const QString puesto = QStringLiteral("--puesto"), salida = QStringLiteral("--salida");
  const QString medidas = QStringLiteral("--pantalla");
  Argumentos a;
  auto error = LeerArgumentos(palabras, {1, 1, {puesto, salida, medidas}, {}}, a);
  if (!error && !a.tiene(puesto)) error = QStringLiteral("Falta --puesto.");
  const auto pantalla = leerPantalla(a.valor(medidas, {}));
  if (!error && a.tiene(medidas) && !pantalla) error = QStringLiteral("--pantalla se escribe como 1366x768-40@1.25.");
  if (error) {
    Quejarse(*error + QStringLiteral(" Use «tarvopos-admin ayuda»."));
    return kMalUso;
  }
  const AplicacionGrafica app(pantalla);
  EscritorGuion escritor;
  return tocarGuion({a.lugares[0], a.valor(puesto, {}), a.valor(salida, QStringLiteral("."))}, escritor);
}
