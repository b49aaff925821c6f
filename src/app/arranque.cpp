#include "app/arranque.h"

#include <QDir>

#include "foundation/cfg_admin.h"
#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "foundation/versiones.h"
#include "loyalty/cliente_bd.h"
#include "platform/io/perfil.h"
#include "platform/sql/cadena_conexion.h"
#include "platform/text/numero.h"
#include "printing/canal.h"
#include "servidores.h"
#include "store/numeracion.h"
#include "store/revision.h"
#include "store/tablas.h"

namespace {

void parar(Puesto& p, const QString& texto) {
  p.mensajes.mostrar(texto);
  p.salida.terminar(1);
}

void prepararCarpetas(Puesto& p) {
  p.ses.psRutaBD = p.rutas.enPrograma(QStringLiteral("TarvoPos.mdb"));
  if (!QDir().mkpath(p.rutas.temp)) parar(p, QStringLiteral("No se pudo crear la carpeta ") + p.rutas.temp);
}

// A database that can't be brought up to date stops the start: statements of this program would fail on it in the
// middle of a sale.
void ponerAlDia(Puesto& p, Conexion& cnn, const QString& archivo, const PasosDeVersion& pasos) {
  const Actualizacion a = ActualizarBase(cnn, archivo, pasos, p.reloj.now());
  if (a.fin == FinActualizacion::AlDia) return;
  p.registro.RegistrarErrorLog(a.palabras);
  if (a.fin != FinActualizacion::Actualizada) parar(p, a.palabras);
  p.mensajes.mostrar(a.palabras);
}

void abrirAlmacenLocal(Puesto& p) {
  if (!ExisteArchivo(p, p.ses.psRutaBD,
                     QStringLiteral("Base de Datos TarvoPos.mdb no existe en la ruta de la aplicación"), true)) {
    p.salida.terminar(1);
  }
  const QString cadena =
      QStringLiteral("driver={Microsoft Access Driver (*.mdb)};Password=tulvek;DBQ=") + p.ses.psRutaBD;
  if (!p.poDBAdmin.AbrirBD(p.poCnnLocal, cadena, true)) p.salida.terminar(1);
  int version = 0;
  if (const auto error = LeerVersion(p.poCnnLocal, version)) parar(p, error->descripcion);
  const QStringList faltan = tablasQueFaltan(p.poCnnLocal, version);
  if (!faltan.isEmpty()) {
    parar(p,
          QStringLiteral("El archivo TarvoPos.mdb no es una base de datos completa de la caja. Faltan las tablas: ") +
              faltan.join(QStringLiteral(", ")) + QStringLiteral(".\nRestaure la última copia de respaldo."));
  }
  ponerAlDia(p, p.poCnnLocal, p.ses.psRutaBD, pasosDelPuesto());
}

// A server that is away, or no file of this machine, is left to the steps that need it.
void ponerServidoresAlDia(Puesto& p) {
  const std::pair<QString, PasosDeVersion> servidores[] = {{p.ses.psConexionCentral, pasosDelCentral()},
                                                           {p.ses.psConexionCliente, pasosDelCliente()}};
  for (const auto& [cadena, pasos] : servidores) {
    const CadenaConexion c = leerCadenaConexion(cadena);
    Conexion servidor;
    if (c.tipo != TipoMotor::Embebido || !p.poDBAdmin.AbrirBD(servidor, cadena)) continue;
    ponerAlDia(p, servidor, QDir(p.rutas.programa).filePath(c.archivo), pasos);
  }
  p.ses.actosPorMirar = {true, true};
}

void leerIGV(Puesto& p) {
  Conexion central;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral)) return;
  Recordset rs;
  if (p.poDBAdmin.EjecutarConsulta(central, u"select nmonto1 from parametro where cCodParam='IGV'"_sql, rs) &&
      !rs.Eof()) {
    p.ses.pnIGV = Numero(rs[u"nmonto1"]) / 100;
    // Never read back: what can't be kept has been told, and the rate holds for this session.
    (void)EscribirParametro(p, QStringLiteral("PARAMETROS"), QStringLiteral("nIGV"), p.ses.psArchivoCfg,
                            TextoDe(p.ses.pnIGV));
  }
  p.poDBAdmin.CerrarBD(central);
}

void probarClientes(Puesto& p, const PasosArranque& pasos) {
  if (!ConectarCliente(p, true, clsDBAdmin::Espera::Normal)) return;
  if (pasos.enviarPendientes) pasos.enviarPendientes(p);
  DesconectarCliente(p);
}

// A closing that ended yesterday is over; one half done stays for the main window.
void mirarCierre(Puesto& p) {
  Recordset rs;
  const bool leido = p.poDBAdmin.EjecutarConsulta(p.poCnnLocal, u"select iCierreCaja from configuracion"_sql, rs);
  if (leido && !rs.Eof() && !rs[0].isNull() && Numero(rs[0]) != 6) return;
  if (!p.poDBAdmin.EjecutarSentencia(p.poCnnLocal, u"update configuracion set iCierreCaja=0"_sql, true)) {
    p.salida.terminar(1);
  }
}

void leerImpresorasYTurno(Puesto& p) {
  Sesion& s = p.ses;
  s.psTurno.clear();
  Recordset rs;
  if (p.poDBAdmin.EjecutarConsulta(p.poCnnLocal,
                                   u"SELECT sImpresora, sImpresoraAlterna, cCodiTurno, nFlagCortaPapel, "
                                   "nFlagCortaPapelALT FROM Configuracion"_sql,
                                   rs) &&
      rs.RecordCount() == 1) {
    s.kPAR_IMPRESORA = LimpiarNulo(rs[u"sImpresora"]);
    s.kPAR_IMPRESORA_ALTERNA = LimpiarNulo(rs[u"sImpresoraAlterna"]);
    s.pnCortaPapel = static_cast<int>(Numero(rs[u"nFlagCortaPapel"]));
    s.pnCortaPapelAlterna = static_cast<int>(Numero(rs[u"nFlagCortaPapelALT"]));
    s.psTurno = LimpiarNulo(rs[u"cCodiTurno"]);
  }
  s.impresoraActual = p.puertos.impresoraPorDefecto();
  if (s.kPAR_IMPRESORA.isEmpty()) s.kPAR_IMPRESORA = s.impresoraActual;
  if (s.kPAR_IMPRESORA_ALTERNA.isEmpty()) s.kPAR_IMPRESORA_ALTERNA = s.impresoraActual;
  s.psSerieImpresora = LeerSerieImpresora(p, 1);
  s.psSerieImpresoraAlterna = LeerSerieImpresora(p, 2);
}

}  // namespace

void Arrancar(Puesto& p, const PasosArranque& pasos) {
  p.ses = Sesion();
  prepararCarpetas(p);
  abrirAlmacenLocal(p);
  p.ses.psArchivoCfg = p.rutas.enPrograma(QStringLiteral("KEB.cfg"));
  p.ses.pdUltimaSincronizacion = p.reloj.now();
  if (const auto fallo = ComprobarPerfil(p.ses.psArchivoCfg)) parar(p, *fallo);
  LeerConfiguracion(p);
  ponerServidoresAlDia(p);
  leerIGV(p);
  probarClientes(p, pasos);
  mirarCierre(p);
  RepararNumeracion(p);
  RepararNumeracionParalela(p);
  RepararCodigos(p);
  leerImpresorasYTurno(p);
  p.ses.psIdZ1.clear();
  p.ses.pbSincronizaMaestros = true;
  p.ses.pbSincronizaCierre = false;
  if (pasos.sincronizar) pasos.sincronizar(p);
}

void MostrarAlmacen(Puesto& p) {
  Conexion central;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral)) {
    p.mensajes.mostrar(QStringLiteral("El codigo de almacen seteado por defecto para esta caja es: ") +
                       p.ses.psAlmacen);
    return;
  }
  Recordset rs;
  if (p.poDBAdmin.EjecutarConsulta(
          central,
          FormatearSQL(u" SELECT cCodAlmac, vDscAlmac FROM Almacen where cCodAlmac='$'"_sql, {Texto(p.ses.psAlmacen)}),
          rs)) {
    p.mensajes.mostrar(QStringLiteral("El almacen seteado por defecto para esta caja es: ") +
                       LimpiarNulo(rs[u"vDscAlmac"]));
  }
  p.poDBAdmin.CerrarBD(central);
}
