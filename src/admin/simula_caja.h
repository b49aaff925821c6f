#pragma once
// One simulated desk for one day, as a process of its own: start, opening, what is sold, closing. It kills itself where
// its seed says so; run again it goes on as a shop would.
#include <functional>
#include <memory>

#include "admin/fallas.h"
#include "admin/puesto_mudo.h"
#include "admin/simula_alambre.h"
#include "admin/simula_libro.h"
#include "admin/tecleo.h"
#include "cashday/principal.h"
#include "foundation/puesto.h"
#include "platform/io/puertos_sistema.h"
#include "sale/caja_full.h"

class PantallasDelDia;
struct PantallaTransaccion;

class CajaSimulada {
 public:
  CajaSimulada(const PlanSimulacion& plan, int caja);
  ~CajaSimulada();

  // 0 once the day is closed; anything else was told on standard error. May not return.
  int jugar(int dia);
  // Starts once more, without faults, until nothing waits to be sent. What still waits is a difference.
  int sincronizarTodo(int dia);

 private:
  using Fallo = std::optional<QString>;
  enum Cosa { kActo, kAveria, kReloj, kRestaura };

  // simula_caja.cpp
  void ponerReloj(int acto);
  bool arrancar(bool conAveria);
  bool darClave();
  bool entrar();
  void abrir();
  void cerrar();
  bool cerrado();
  void registrarCambio();
  void latir();
  void restaurar(int acto, int perdido);
  void restaurarAlAmanecer();
  bool armar(int acto, int sentencias, int viajes);
  bool desarmar();
  QStringList filasDelDia(bool abiertas);
  QStringList filas(const Sql& sql);
  qint64 cifra(const Sql& sql) { return filas(sql).value(0).toLongLong(); }
  void diferencia(const QString& texto);

  // What an act does, and what it must have left. `documentos`: how many it makes.
  void hacer(Intento i, int documentos, const std::function<void()>& acto);
  void mirar(const Intento& i, bool murio, bool cortado, int documentos);
  std::vector<Asiento> documentosDesde(const Intento& i);

  // simula_ventas.cpp
  void acto(int n);
  void venta();
  void rapida();
  void orden();
  void adelanto();
  void nota();
  void liquidacion();
  void documentoDeLiquidacion();
  void anular();
  void mirarAnulacion(bool murio, bool cortado);
  void retirar();
  void reporteX();
  void cambiarTurno();
  void reimprimir();
  CajaRegistradoraFull& pantalla();
  std::vector<RenglonTecleado> teclear(CajaRegistradoraFull& v, bool conDescuento);
  qint64 puntosDe(CajaRegistradoraFull& v, PantallasDelDia& otras, qint64 total);
  void cobrar(CajaRegistradoraFull& v, qint64 total);
  Intento intento(const char* nombre, const std::vector<RenglonTecleado>& lineas) const;

  const PlanSimulacion plan_;
  const int caja_;
  const QString carpeta_;
  int dia_ = 0, acto_ = 0;
  Azar azar_{0};
  LibroCaja libro_;
  RelojParado reloj_;
  PersonaQueAsiente persona_;
  SalidaComoExcepcion salida_;
  Fallas fallas_;
  Alambre alambre_;
  PuertosSistema puertos_;
  std::unique_ptr<Motores> reales_, desviados_, motores_;
  PuertosConFallas puertosConFallas_;
  std::unique_ptr<Puesto> p_;
  Principal ventana_;
  std::optional<CajaRegistradoraFull> pantalla_;
};

// Whether the server is begun anew on that day.
bool ServidorCaeElDia(const PlanSimulacion& plan, int dia);
