#include "foundation/rutinas.h"

#include <QFileInfo>

#include "foundation/puesto.h"
#include "platform/text/numero.h"

namespace {

constexpr QChar kRetroceso(8);

bool letraAscii(QChar c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
bool digito(QChar c) { return c >= u'0' && c <= u'9'; }

QChar filtrar(QChar tecla, ClaseTecla clase) {
  if (clase == ClaseTecla::Mayusculas) return tecla.toUpper();
  if (clase == ClaseTecla::Minusculas) return tecla.toLower();
  if (tecla == kRetroceso) return tecla;
  bool pasa = false;
  switch (clase) {
    case ClaseTecla::Letras:
      pasa = letraAscii(tecla) || tecla == u'.' || QStringView(u"ÑñáéíóúÁÉÍÓÚ ").contains(tecla);
      break;
    case ClaseTecla::Decimal: pasa = digito(tecla) || QStringView(u"., ").contains(tecla); break;
    default: pasa = digito(tecla) || tecla == u' '; break;
  }
  return pasa ? tecla : QChar();
}

}  // namespace

QChar FiltrarTecla(QChar tecla, std::initializer_list<ClaseTecla> clases) {
  for (ClaseTecla c : clases) tecla = filtrar(tecla, c);
  return tecla;
}

QChar FiltrarTeclaNombre(Puesto& p, QChar tecla, std::initializer_list<ClaseTecla> clases) {
  int& blancos = p.ses.nBlancosSeguidos;
  if (tecla != u' ') {
    blancos = 0;
  } else if (++blancos == 2) {
    p.mensajes.mostrar(QStringLiteral("No esta permitido dos espacios en blanco"));
    blancos = 0;
    tecla = kRetroceso;
  }
  return FiltrarTecla(tecla, clases);
}

void AvisarComaDecimal(Puesto& p) { p.mensajes.mostrar(QStringLiteral("Use punto para los decimales")); }

bool SinComaDecimal(Puesto& p, const QString& texto) {
  if (!ConComaDecimal(texto)) return true;
  AvisarComaDecimal(p);
  return false;
}

bool ExisteArchivo(Puesto& p, const QString& ruta, const QString& texto, bool mensaje) {
  if (!ruta.isEmpty() && QFileInfo::exists(ruta)) return true;
  if (mensaje) p.mensajes.mostrar(texto);
  return false;
}

bool VerificarFechaSistema(Puesto& p) {
  Conexion central;
  if (!p.poDBAdmin.AbrirBD(central, p.ses.psConexionCentral, false, clsDBAdmin::Espera::Venta)) return true;
  p.poDBAdmin.CerrarBD(central);

  Recordset rs;
  if (!p.poDBAdmin.EjecutarConsulta(
          p.poCnnLocal,
          u"SELECT 1 as Orden,Max(dOperFech) AS FechaMaximaOperacion FROM Operacion UNION SELECT 2 as "
          "Orden,  Max(dOperFech) AS FechaMaximaOperacionPar From Operacionparalela ORDER BY orden"_sql,
          rs)) {
    return true;
  }
  for (const auto& fila : rs) {
    const QDate ultima = fila[u"FechaMaximaOperacion"].toDateTime().date();
    if (ultima.isValid() && p.reloj.today() < ultima) return false;
  }
  return true;
}

bool EsperarProceso(Puesto& p, qint64 nProceso) { return p.programas->esperar(nProceso); }

void CerrarVentana(Puesto& p, const QString& sTitulo) {
  if (!p.programas->cerrar(sTitulo)) p.mensajes.mostrar(QStringLiteral("No se pudo cerrar la aplicación"));
}

bool AbrirEnlace(Puesto& p, const QString& sEnlace, bool bCorreo) {
  return p.programas->abrir(bCorreo ? QStringLiteral("mailto:") + sEnlace : sEnlace);
}
