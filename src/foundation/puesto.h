#pragma once
// The desk: everything a routine needs. One per process, built in main and passed by reference; a test builds
// another one with a fixed clock, a scripted person and a recording printer.
#include "foundation/db_admin.h"
#include "foundation/registro.h"
#include "foundation/rutas.h"
#include "foundation/sesion.h"
#include "platform/io/mensajes.h"
#include "platform/io/programas_sistema.h"
#include "platform/io/puertos.h"
#include "platform/io/reloj.h"
#include "platform/io/salida.h"
#include "platform/sql/conexion.h"

struct Puesto {
  Puesto(Motores& m, Puertos& pu, Reloj& r, Mensajes& me, Salida& s, Rutas ru)
      : motores(m),
        puertos(pu),
        reloj(r),
        mensajes(me),
        salida(s),
        rutas(std::move(ru)),
        registro(rutas, reloj),
        poDBAdmin(*this) {}
  Puesto(const Puesto&) = delete;
  Puesto& operator=(const Puesto&) = delete;

  Motores& motores;
  Puertos& puertos;
  Reloj& reloj;
  Mensajes& mensajes;
  Salida& salida;
  std::shared_ptr<Programas> programas = std::make_shared<ProgramasSistema>();
  Rutas rutas;
  Registro registro;
  Sesion ses;
  clsDBAdmin poDBAdmin;
  Conexion poCnnLocal, poCnnCentral, poCnnCliente;
};
