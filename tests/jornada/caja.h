#pragma once
// A desk of the shop's day: its folder and paper, which outlive its program, and the program that runs on them.
#include "admin/fallas.h"
#include "admin/puesto_mudo.h"
#include "apoyo/puesto_prueba.h"
#include "cashday/principal.h"
#include "libro.h"

namespace jornada {

// Thrown where a kill strikes.
struct ProgramaMuerto {};

// The folder of a day: two desks beside their central and their client database, all new.
class Tienda {
 public:
  Tienda();
  QString carpetaDe(int caja) const { return carpeta_.filePath(QStringLiteral("caja%1").arg(caja)); }
  RelojFijo reloj;

 private:
  QTemporaryDir carpeta_;
};

class Caja {
 public:
  Caja(Tienda& tienda, int numero);

  // Start-up, login and main window, as after a double click. A fault under way strikes here too.
  void arrancar();
  // The program ends; what it had open is gone.
  void apagar() { viva_.reset(); }
  bool enMarcha() const { return viva_ != nullptr; }
  Puesto& p() { return *viva_; }

  // The rows of a query on this desk's store, or on one of the servers, beside the program's own connections.
  enum class Base { Local, Central, Cliente };
  QStringList filas(const QString& sql, Base base = Base::Local);
  QString valor(const QString& sql, Base base = Base::Local) { return filas(sql, base).value(0); }

  const int numero;
  Tienda& tienda;
  Fallas fallas;
  PersonaQueAsiente persona;
  PuertosRegistro papel;
  Principal ventana;
  Libro libro;

 private:
  std::unique_ptr<Motores> reales_;
  MotoresConFallas motores_;
  PuertosConFallas puertos_;
  SalidaPrueba salida_;
  std::unique_ptr<Puesto> viva_;
};

}  // namespace jornada
