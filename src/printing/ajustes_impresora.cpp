#include "printing/ajustes_impresora.h"

#include "foundation/puesto.h"
#include "platform/io/perfil.h"
#include "platform/text/texto.h"

namespace {

const QString kSeccion = QStringLiteral("PAGINAS"), kConOrden = QStringLiteral(" t");

QString configuracion(const Puesto& p) { return p.rutas.enPrograma(QStringLiteral("KEB.cfg")); }

}  // namespace

AjustesImpresora LeerAjustes(const Puesto& p, const QString& impresora) {
  QString valor;
  for (const auto& [clave, suyo] : LeerSeccionPerfil(configuracion(p), kSeccion)) {
    if (clave == Recortar(impresora)) valor = suyo;
  }
  const bool conOrden = valor.endsWith(kConOrden);
  return {PaginaDeNombre(conOrden ? valor.chopped(kConOrden.size()) : valor), conOrden};
}

std::optional<QString> GuardarAjustes(const Puesto& p, const QString& impresora, const AjustesImpresora& ajustes) {
  return EscribirPerfil(configuracion(p), kSeccion, Recortar(impresora),
                        NombrePagina(ajustes.pagina) + (ajustes.seleccionar ? kConOrden : QString()));
}

QString SeleccionDePagina(const AjustesImpresora& ajustes) {
  if (!ajustes.seleccionar) return {};
  char16_t n = 16;
  switch (ajustes.pagina) {
    case Pagina::Windows1252: break;
    case Pagina::Pc858: n = 19; break;
    case Pagina::Pc850: n = 2; break;
    case Pagina::Pc437: n = 0; break;
  }
  return QStringLiteral("\x1Bt") + QChar(n);
}
