#include "cashday/cierre.h"

#include "cashday/marcas.h"
#include "cashday/pantallas_principal.h"
#include "cashday/principal.h"
#include "cashday/reportes.h"
#include "foundation/puesto.h"
#include "foundation/transaccion.h"
#include "platform/text/numero.h"
#include "platform/text/texto.h"

namespace {

enum Paso { kSinCierre = 0, kDetalle = 1, kZ1 = 2, kZ = 3, kCuadre = 4, kBlanqueo = 5 };

// The stored step; a value that no closing writes counts as none. False when it can't be read.
bool leerPaso(Puesto& p, int& paso) {
  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u"select icierrecaja from configuracion"_sql, rs)) {
    p.mensajes.mostrar(QStringLiteral("Error"));
    return false;
  }
  const qint64 leido = AEntero(Numero(rs[u"icierrecaja"]));
  paso = leido >= kDetalle && leido <= kBlanqueo ? static_cast<int>(leido) : kSinCierre;
  return true;
}

// Stores the number of the next step. Only the first one holds the closing back, as long as nothing has been done;
// later ones are written again by what follows, at the latest by the last step, and until then a step would only be
// repeated.
[[nodiscard]] bool guardarPaso(Puesto& p, int paso) {
  const auto error = p.poCnnLocal.ejecutar(FormatearSQL(u"update configuracion set icierrecaja=$"_sql, {paso}));
  if (!error) return true;
  if (paso > kDetalle) {
    p.registro.RegistrarErrorLog(QStringLiteral("CerrarCaja - paso %1: ").arg(paso) + error->descripcion);
    return true;
  }
  p.mensajes.mostrar(QStringLiteral("No se pudo empezar el cierre de caja: ") + error->descripcion +
                     QStringLiteral("\nNo se ha cerrado nada. Use Reporte Z cuando esté resuelto."));
  return false;
}

enum class FinPaso {
  Guardado,    // has stored the step that follows itself
  PorGuardar,  // done
  Detenido     // not done: a box has told why
};

// A report without figures in the store holds the closing: the day must not end without its counters. One that the
// central database kept from being made doesn't.
FinPaso finDeReporte(Puesto& p, Principal& v, const ResultadoReporte& r, const QString& nombre) {
  v.bReporteImpreso = v.bReporteImpreso || r.impreso;
  if (r.hecho()) return FinPaso::Guardado;
  if (r.fin == FinReporte::SinCentral) return FinPaso::PorGuardar;
  const QString porque = r.porque.isEmpty() ? QStringLiteral("No se pudo hacer el reporte ") + nombre + u'.'
                                            : QStringLiteral("No se pudieron guardar las cifras del reporte ") +
                                                  nombre + QStringLiteral(": ") + r.porque;
  p.mensajes.mostrar(porque + QStringLiteral("\nEl cierre de caja queda pendiente en ese paso. Use Reporte Z para "
                                             "continuarlo."));
  return FinPaso::Detenido;
}

FinPaso hacerPaso(Puesto& p, Principal& v, PantallasPrincipal& pantallas, int paso) {
  switch (paso) {
    case kDetalle:
      (void)EnviarDetalleZ1(p, -1);  // has told it; the synchronisation sends it later
      return FinPaso::PorGuardar;
    case kZ1:
      v.bReporteImpreso = false;
      return finDeReporte(p, v, ReportesEspeciales1(p, PedidoZ(kZ)), QStringLiteral("Z1"));
    case kZ: return finDeReporte(p, v, ReportesEspeciales(p, PedidoZ(kCuadre)), QStringLiteral("Z"));
    case kCuadre: pantallas.cuadreDeCaja(v, kCuadreCierre); return FinPaso::PorGuardar;
    default: return FinPaso::PorGuardar;
  }
}

QString avanceDe(int paso) {
  switch (paso) {
    case kDetalle: return QStringLiteral("Enviando el detalle del Z1…");
    case kZ1: return QStringLiteral("Imprimiendo el reporte Z1…");
    case kZ: return QStringLiteral("Imprimiendo el reporte Z…");
    case kBlanqueo: return QStringLiteral("Cerrando las operaciones…");
    default: return {};
  }
}

// What may begin; a closing under way is only asked for what is still its own business.
bool puedeCerrar(Puesto& p, int paso) {
  // By the last step the rows may be closed already.
  if (paso != kBlanqueo && !HayOperaciones(p)) {
    p.mensajes.mostrar(QStringLiteral("Debe registrar operaciones."));
    return false;
  }
  return paso != kSinCierre || !AvisarRelojAtrasado(p);
}

bool fallaBlanqueo(Puesto& p, const QString& descripcion) {
  p.mensajes.mostrar(descripcion +
                     QStringLiteral("\nEl cierre de caja queda pendiente en su último paso. Use Reporte Z "
                                    "para terminarlo."));
  return false;
}

// Closes the rows of the day, here and then in the central database.
bool cerrarOperaciones(Puesto& p) {
  for (const LiteralSql sql : {u" UPDATE OPERACION SET cOperFlagAbierto = 0 WHERE cOperFlagAbierto = 1"_sql,
                               u" UPDATE OPERACIONPARALELA SET cOperFlagAbierto = 0 WHERE cOperFlagAbierto = 1"_sql}) {
    if (const auto error = p.poCnnLocal.ejecutar(sql)) return fallaBlanqueo(p, error->descripcion);
  }
  // There is no head to mark: this session never sent one.
  if (p.ses.bSinCentral) return true;
  // A connection that was left open may be dead by now. One that can't be opened tells so at the statement.
  (void)p.poDBAdmin.AbrirBD(p.poCnnCentral, p.ses.psConexionCentral);
  if (const auto error = p.poCnnCentral.ejecutar(
          FormatearSQL(u" UPDATE TCABECERAZ1 SET nidEstado = 0 WHERE nidEstado = -1 AND cCajaCodi = '$'"_sql,
                       {Texto(p.ses.psCaja)}))) {
    return fallaBlanqueo(
        p, QStringLiteral("No se pudo marcar el cierre en la base de datos central: ") + error->descripcion);
  }
  return true;
}

void sincronizarCierre(Puesto& p, PantallasPrincipal& pantallas) {
  p.ses.pbSincronizaMaestros = false;
  p.ses.pbSincronizaCierre = true;
  pantallas.sincronizar(false);
  p.ses.pbSincronizaMaestros = true;
  p.ses.pbSincronizaCierre = false;
}

}  // namespace

bool BlanqueaTransacciones(Puesto& p, PantallasPrincipal& pantallas) {
  if (!cerrarOperaciones(p)) return false;
  MarcasDia m;
  (void)LeerMarcas(p, m);  // what is blank below was not read
  if (m.cOperIdx.isEmpty()) return fallaBlanqueo(p, QStringLiteral("No se pudo leer la última operación del día."));
  const Valor paralela = m.cOperCodex.isEmpty() ? Valor() : Valor(Cifras(m.cOperCodex));
  std::vector<Sql> fin{
      FormatearSQL(u"UPDATE Configuracion SET cOperId = $, cOperIdP = $"_sql, {Cifras(m.cOperIdx), paralela})};
  // The main printer's Z has blanked it, unless it gave up: a closed day keeps no turn.
  if (!Recortar(p.ses.psTurno).isEmpty()) fin.push_back(u"UPDATE Configuracion SET cCodiTurno = ''"_sql);
  fin.push_back(u"update configuracion set icierrecaja=6"_sql);
  if (const auto error = EjecutarJuntas(p.poCnnLocal, fin)) return fallaBlanqueo(p, error->descripcion);
  p.ses.psTurno.clear();
  sincronizarCierre(p, pantallas);
  pantallas.respaldar(MotivoRespaldo::Cierre);
  p.mensajes.mostrar(QStringLiteral("Se han cerrado todas las operaciones."));
  return true;
}

void CerrarCaja(Puesto& p, Principal& v, PantallasPrincipal& pantallas,
                const std::function<void(const QString&)>& avance) {
  if (!p.mensajes.preguntar(QStringLiteral("Esta Operación Cerrará Caja\r Desea Continuar?"),
                            QStringLiteral("Confirmar Cierre de Caja"), false)) {
    return;
  }
  if (!AutorizarOperacion(v, pantallas, QStringLiteral("Reporte Z"))) return;
  int paso = kSinCierre;
  if (!leerPaso(p, paso) || !puedeCerrar(p, paso)) return;
  for (; paso < kBlanqueo; ++paso) {
    avance(avanceDe(paso));
    const FinPaso fin = hacerPaso(p, v, pantallas, paso);
    if (fin == FinPaso::Detenido) break;
    if (fin == FinPaso::PorGuardar && !guardarPaso(p, paso + 1)) return avance({});
  }
  bool cerrado = false;
  if (paso == kBlanqueo) {
    avance(avanceDe(kBlanqueo));
    cerrado = BlanqueaTransacciones(p, pantallas);
  }
  avance({});
  v.cierreInterrumpido = !cerrado;
}
