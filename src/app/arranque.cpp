#include "app/arranque.h"

#include <QDir>

#include "foundation/cfg_admin.h"
#include "foundation/disco.h"
#include "foundation/fin_arranque.h"
#include "foundation/puesto.h"
#include "foundation/rutinas.h"
#include "foundation/versiones.h"
#include "loyalty/cliente_bd.h"
#include "platform/io/perfil.h"
#include "platform/sql/cadena_conexion.h"
#include "platform/text/numero.h"
#include "postgres/base_postgres.h"
#include "printing/canal.h"
#include "servidores.h"
#include "store/numeracion.h"
#include "store/revision.h"
#include "store/tablas.h"

namespace {

const QString kPARAMETROS = QStringLiteral("PARAMETROS"), kIGV = QStringLiteral("nIGV");
const QString kRestaurar =
    QStringLiteral(" Restaure la última copia de respaldo como dice el manual, o llame a quien instaló el programa.");
constexpr int kDiasDeRegistro = 90;  // of the daily logs

void prepararCarpetas(Puesto& p) {
  p.ses.psRutaBD = p.rutas.enPrograma(QStringLiteral("TarvoPos.mdb"));
  if (QDir().mkpath(p.rutas.temp)) return;
  TerminarArranque(p,
                   QStringLiteral("La caja no puede escribir en su carpeta. Revise que el disco no esté lleno y vuelva "
                                  "a abrir el programa."),
                   QStringLiteral("No se pudo crear la carpeta ") + p.rutas.temp);
}

// A database that can't be brought up to date stops the start: statements of this program would fail on it in the
// middle of a sale.
void ponerAlDia(Puesto& p, Conexion& cnn, const QString& archivo, const PasosDeVersion& pasos) {
  const Actualizacion a = ActualizarBase(cnn, archivo, pasos, p.reloj.now());
  switch (a.fin) {
    case FinActualizacion::AlDia: return;
    case FinActualizacion::Actualizada: p.mensajes.mostrar(a.palabras); return;
    case FinActualizacion::MasNueva:
      TerminarArranque(p,
                       QStringLiteral("Los datos de esta caja los hizo un programa más nuevo que éste. Instale la "
                                      "última versión de TarvoPos en esta computadora y vuelva a abrirlo."),
                       a.palabras);
    case FinActualizacion::Fallo:
      TerminarArranque(p,
                       QStringLiteral("No se pudieron poner al día los datos de esta caja, que quedaron como estaban. "
                                      "Revise que el disco no esté lleno y vuelva a abrir el programa."),
                       a.palabras);
  }
}

[[noreturn]] void noSeLee(Puesto& p, const QString& tecnico) {
  TerminarArranque(p,
                   QStringLiteral("No se puede leer el archivo con las ventas de esta caja. Apague y encienda la "
                                  "computadora; si sigue igual, llame a quien instaló el programa."),
                   tecnico);
}

void abrirAlmacenLocal(Puesto& p) {
  if (!ExisteArchivo(p, p.ses.psRutaBD, {}, false)) {
    TerminarArranque(
        p, QStringLiteral("No se encuentra el archivo con las ventas de esta caja.") + kRestaurar,
        QStringLiteral("Base de Datos TarvoPos.mdb no existe en la ruta de la aplicación (%1)").arg(p.rutas.programa));
  }
  const QString cadena =
      QStringLiteral("driver={Microsoft Access Driver (*.mdb)};Password=tulvek;DBQ=") + p.ses.psRutaBD;
  if (!p.poDBAdmin.AbrirBD(p.poCnnLocal, cadena)) {
    TerminarArranque(
        p, QStringLiteral("No se puede abrir el archivo con las ventas de esta caja.") + kRestaurar,
        QStringLiteral("No se pudo conectar a la BD de Logistica en SQL SERVER. \n") + p.poDBAdmin.ultimoFallo());
  }
  int version = 0;
  if (const auto error = LeerVersion(p.poCnnLocal, version)) noSeLee(p, error->descripcion);
  const QStringList faltan = tablasQueFaltan(p.poCnnLocal, version);
  if (!faltan.isEmpty()) {
    TerminarArranque(p, QStringLiteral("El archivo con las ventas de esta caja está incompleto.") + kRestaurar,
                     QStringLiteral("El archivo TarvoPos.mdb no es una base de datos completa de la caja. Faltan las "
                                    "tablas: ") +
                         faltan.join(QStringLiteral(", ")) + u'.');
  }
  ponerAlDia(p, p.poCnnLocal, p.ses.psRutaBD, pasosDelPuesto());
}

// A server that is away is left to the steps that need it. One that all desks share is brought up to date by a person,
// not by the first desk that starts.
void ponerServidoresAlDia(Puesto& p) {
  const std::pair<QString, BaseServidor> servidores[] = {{p.ses.psConexionCentral, BaseServidor::Central},
                                                         {p.ses.psConexionCliente, BaseServidor::Cliente}};
  for (const auto& [cadena, base] : servidores) {
    const CadenaConexion c = leerCadenaConexion(cadena);
    Conexion servidor;
    if (c.tipo == TipoMotor::SqlServer || !p.poDBAdmin.AbrirBD(servidor, cadena)) continue;
    if (c.tipo == TipoMotor::Embebido) {
      ponerAlDia(p, servidor, QDir(p.rutas.programa).filePath(c.archivo),
                 pasosDelServidor(base, LenguajeMotor::Sqlite));
    } else if (const QString falta = RevisarBasePostgres(servidor, base); !falta.isEmpty()) {
      TerminarArranque(p,
                       QStringLiteral("El servidor de la tienda no tiene las tablas que esta caja necesita. Pida a "
                                      "quien instaló el programa que lo ponga al día; las ventas están a salvo."),
                       falta);
    }
  }
  p.ses.actosPorMirar = {true, true};
}

// Without a rate no paper would be right, so a desk that has never seen its central database can't go on.
void seguirSinCentral(Puesto& p, bool aceptado) {
  if (!aceptado && !p.mensajes.preguntar(QStringLiteral("¿Desea continuar sin el servidor central?"))) {
    p.salida.terminar(1);
  }
  p.ses.bSinCentral = true;
  p.ses.pnIGV = Val(LeerParametro(p, kPARAMETROS, kIGV, p.ses.psArchivoCfg));
  if (p.ses.pnIGV > 0) return;
  TerminarArranque(
      p,
      QStringLiteral("Esta caja todavía no conoce la tasa del IGV, que está en el servidor central. "
                     "Conéctela una vez con el servidor y vuelva a abrir el programa."),
      QStringLiteral("El servidor central no responde y la clave nIGV está en blanco. ") + p.poDBAdmin.ultimoFallo());
}

// False when the central database is away. One that has no rate to tell leaves the last one.
bool leerIGV(Puesto& p) {
  Conexion central;
  // One that has just been waited for is not waited for again.
  if (p.ses.bCentralCaida || !p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral)) return false;
  Recordset rs;
  if (p.poDBAdmin.EjecutarConsulta(central, u"select nmonto1 from parametro where cCodParam='IGV'"_sql, rs) &&
      !rs.Eof()) {
    p.ses.pnIGV = Numero(rs[u"nmonto1"]) / 100;
    // What can't be kept has been told, and the rate holds for this session.
    (void)EscribirParametro(p, kPARAMETROS, kIGV, p.ses.psArchivoCfg, TextoDe(p.ses.pnIGV));
  }
  p.poDBAdmin.CerrarBD(central);
  return true;
}

bool repararNumeros(Puesto& p) {
  if (!RepararNumeracion(p) || !RepararNumeracionParalela(p)) return false;
  RepararCodigos(p);
  return true;
}

void sincronizarAlInicio(Puesto& p, const PasosArranque& pasos) {
  p.ses.psIdZ1.clear();
  p.ses.pbSincronizaMaestros = true;
  p.ses.pbSincronizaCierre = false;
  if (pasos.sincronizar && !p.ses.bSinCentral) pasos.sincronizar(p);
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
  if (const auto error = p.poCnnLocal.ejecutar(u"update configuracion set iCierreCaja=0"_sql)) {
    noSeLee(p, error->descripcion);
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
  const bool aceptado = p.ses.bSinCentral;  // a change of turn starts again and asks nothing twice
  p.ses = Sesion();
  prepararCarpetas(p);
  abrirAlmacenLocal(p);
  p.ses.psArchivoCfg = p.rutas.enPrograma(QStringLiteral("KEB.cfg"));
  p.ses.pdUltimaSincronizacion = p.reloj.now();
  if (const auto fallo = ComprobarPerfil(p.ses.psArchivoCfg)) {
    TerminarArranque(p, QStringLiteral("No se puede leer el archivo con los ajustes de esta caja.") + kRestaurar,
                     *fallo);
  }
  LeerConfiguracion(p);
  Ocupado ocupado(p.mensajes, QStringLiteral("Buscando los servidores…"));
  ponerServidoresAlDia(p);
  if (!leerIGV(p)) seguirSinCentral(p, aceptado);
  ocupado.ahora(QStringLiteral("Buscando la base de clientes…"));
  probarClientes(p, pasos);
  ocupado.ahora(QStringLiteral("Abriendo la caja…"));
  mirarCierre(p);
  if (!p.ses.bSinCentral && !repararNumeros(p)) seguirSinCentral(p, aceptado);
  leerImpresorasYTurno(p);
  sincronizarAlInicio(p, pasos);
  p.registro.BorrarViejos(kDiasDeRegistro);
  RevisarDisco(p);
}

bool ContactarCentral(Puesto& p, const PasosArranque& pasos) {
  if (!p.ses.bSinCentral) return true;
  Conexion central;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, false, clsDBAdmin::Espera::Venta)) return false;
  p.poDBAdmin.CerrarBD(central);
  const Ocupado ocupado(p.mensajes, QStringLiteral("Poniendo la caja al día con el servidor central…"));
  ponerServidoresAlDia(p);
  if (!leerIGV(p)) return false;
  // A query that the server refuses has been told, and would be refused again; the next start repairs.
  p.ses.bSinCentral = !repararNumeros(p) && p.ses.bCentralCaida;
  if (!p.ses.bSinCentral) sincronizarAlInicio(p, pasos);
  return !p.ses.bSinCentral;
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
