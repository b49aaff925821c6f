#include "printing/configura_impresora.h"

#include "foundation/cfg_admin.h"
#include "foundation/puesto.h"
#include "platform/text/texto.h"
#include "printing/canal.h"

namespace {

const std::array<QString, 2> kPuertos{QStringLiteral("LPT1"), QStringLiteral("LPT2")};

QString parametro(Puesto& p, const QString& clave) {
  return Recortar(LeerParametro(p, QStringLiteral("PARAMETROS"), clave, p.ses.psArchivoCfg));
}

// The port of a printer as it is listed, "" when it isn't.
QString puertoListado(Puesto& p, const QString& impresora) {
  for (const auto& i : p.puertos.impresoras())
    if (i.nombre == impresora) return i.puerto;
  return {};
}

// The port that the bytes of a printer take, by the table of routes.
QString puertoDeRuta(Puesto& p, const ConfiguraImpresora& v, size_t n) {
  const QString nombre = v.cboImpresora[n];
  if (v.cboImpresora[0].startsWith(u'\\')) return nombre;
  const QString puerto = puertoListado(p, nombre);
  if (Izquierda(puerto, 3) == u"COM") return puerto;
  if (n == 1) return puerto.isEmpty() ? kPuertos[1] : Izquierda(puerto, 4);
  const QString propio = parametro(p, QStringLiteral("PuertoPrinter"));
  return propio.isEmpty() ? kPuertos[0] : propio;
}

void cargarConexion(Puesto& p, ConfiguraImpresora& v, size_t n) {
  v.cboLugar[n] = v.lugarGuardado[n] = p.puertos.lugarDe(puertoDeRuta(p, v, n));
  v.ajustes[n] = LeerAjustes(p, v.cboImpresora[n]);
}

// Takes a printer's bytes to its place. The drawer hangs on the main printer, and its pulse goes to LPT1.
std::optional<QString> conectar(Puesto& p, const ConfiguraImpresora& v, size_t n) {
  const QString &nombre = v.cboImpresora[n], &lugar = v.cboLugar[n];
  QString puerto = puertoDeRuta(p, v, n);
  if (puertoListado(p, nombre).isEmpty() && !nombre.startsWith(u'\\') && !lugar.isEmpty()) {
    if (const auto e = p.puertos.nombrar(nombre, kPuertos[n])) return e;
  }
  if (n == 1 && puerto == puertoDeRuta(p, v, 0) && lugar != v.cboLugar[0]) {
    puerto = kPuertos[1];
    if (const auto e = p.puertos.nombrar(nombre, puerto)) return e;
  }
  if (p.puertos.lugarDe(puerto) != lugar) {
    if (const auto e = p.puertos.llevar(puerto, lugar)) return e;
  }
  const bool gavetaAparte = n == 0 && puerto != kPuertos[0] && puertoDeRuta(p, v, 1) != kPuertos[0];
  if (!gavetaAparte || p.puertos.lugarDe(kPuertos[0]) == lugar) return {};
  return p.puertos.llevar(kPuertos[0], lugar);
}

bool grabarEnPuesto(Puesto& p, const ConfiguraImpresora& v) {
  const auto& [principal, alterna] = v.cboImpresora;
  const auto flag = [&v](size_t n) { return v.flagCortaPapel[n] ? 1 : 0; };
  if (!p.poDBAdmin.EjecutarSentencia(
          p.poCnnLocal,
          FormatearSQL(u"UPDATE Configuracion SET sImpresora = '$', sImpresoraAlterna = '$', "
                       "nFlagCortaPapel=$, nFlagCortaPapelALT=$"_sql,
                       {Texto(principal), Texto(alterna), flag(0), flag(1)}),
          true))
    return false;
  p.ses.kPAR_IMPRESORA = principal;
  p.ses.kPAR_IMPRESORA_ALTERNA = alterna;
  p.ses.pnCortaPapel = flag(0);
  p.ses.pnCortaPapelAlterna = flag(1);
  return true;
}

}  // namespace

void CargarImpresoras(Puesto& p, ConfiguraImpresora& v) {
  v = {};
  for (const auto& i : p.puertos.impresoras()) v.impresoras << i.nombre;
  v.lugares = p.puertos.lugares();
  v.cboImpresora = {p.ses.kPAR_IMPRESORA, p.ses.kPAR_IMPRESORA_ALTERNA};
  v.flagCortaPapel = {p.ses.pnCortaPapel == 1, p.ses.pnCortaPapelAlterna == 1};
  for (size_t n : {0, 1}) cargarConexion(p, v, n);
}

void ElegirImpresora(Puesto& p, ConfiguraImpresora& v, int cual, const QString& dispositivo) {
  const auto n = static_cast<size_t>(cual);
  v.cboImpresora[n] = dispositivo;
  if (Recortar(dispositivo).isEmpty()) v.flagCortaPapel[n] = false;
  else cargarConexion(p, v, n);
}

void ProbarImpresora(Puesto& p, const ConfiguraImpresora& v, int cual) {
  const auto n = static_cast<size_t>(cual);
  const QString lugar = Recortar(v.cboLugar[n]).isEmpty() ? puertoDeRuta(p, v, n) : Recortar(v.cboLugar[n]);
  const QString modelo = parametro(p, QStringLiteral("PRINTER"));
  std::optional<QString> fallo;
  {
    const Ocupado ocupado(p.mensajes, QStringLiteral("Imprimiendo la página de prueba…"));
    fallo = ImprimirPrueba(p, lugar, v.ajustes[n], modelo.isEmpty() ? QStringLiteral("EPSON") : modelo);
  }
  if (fallo) {
    p.mensajes.mostrar(*fallo, Mensajes::kTitulo, Icono::Aviso);
    return;
  }
  p.mensajes.mostrar(
      QStringLiteral("La página de prueba salió hacia %1.\nMire en el papel las tildes y la ñ, el corte, y "
                     "que el cajón se haya abierto.")
          .arg(lugar));
}

bool GrabarImpresoras(Puesto& p, ConfiguraImpresora& v) {
  for (QString& lugar : v.cboLugar) lugar = Recortar(lugar);
  for (size_t n : {0, 1}) {
    if (!v.flagCortaPapel[n]) continue;
    auto error = v.cboLugar[n] == v.lugarGuardado[n] ? std::nullopt : conectar(p, v, n);
    const AjustesImpresora antes = LeerAjustes(p, v.cboImpresora[n]);
    const bool otros = antes.pagina != v.ajustes[n].pagina || antes.seleccionar != v.ajustes[n].seleccionar;
    if (!error && otros) error = GuardarAjustes(p, v.cboImpresora[n], v.ajustes[n]);
    if (!error) continue;
    p.mensajes.mostrar(QStringLiteral("No se pudo guardar la configuración de impresoras: ") + *error);
    return false;
  }
  return grabarEnPuesto(p, v);
}
