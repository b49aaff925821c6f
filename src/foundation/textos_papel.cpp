#include "foundation/textos_papel.h"

#include "platform/io/perfil.h"
#include "platform/text/texto.h"

namespace {

constexpr int kAnchoPapel = 39;

}  // namespace

TextosPapel LeerTextosPapel(const QString& archivo) {
  TextosPapel t;
  // clang-format off
  const struct { const char* clave; QString& texto; } kClaves[] = {
      {"Lema", t.Lema}, {"Tienda", t.Tienda}, {"TituloRetiro", t.TituloRetiro}, {"TituloCuadre", t.TituloCuadre},
      {"TituloCuadreZ1", t.TituloCuadreZ1},
  };
  // clang-format on
  for (const auto& c : kClaves) {
    const QString valor =
        Recortar(LeerPerfil(archivo, QStringLiteral("PAPELES"), QString::fromLatin1(c.clave)).value_or(QString()));
    if (!valor.isEmpty()) c.texto = Izquierda(valor, kAnchoPapel);
  }
  return t;
}
