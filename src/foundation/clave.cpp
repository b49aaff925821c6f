#include "foundation/clave.h"

#include <sodium.h>

#include "platform/text/texto.h"

namespace {

// The library's own beginning is safe to repeat; without it nothing below may be called.
bool lista() { return sodium_init() >= 0; }

QByteArray bytesDe(const QString& clave) { return Recortar(clave).toUtf8(); }

}  // namespace

std::optional<QString> CifrarClave(const QString& clave) {
  const QByteArray b = bytesDe(clave);
  char cifrada[crypto_pwhash_STRBYTES];
  if (!lista() || crypto_pwhash_str(cifrada, b.constData(), static_cast<unsigned long long>(b.size()),
                                    crypto_pwhash_OPSLIMIT_INTERACTIVE, crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0) {
    return {};
  }
  return QString::fromLatin1(cifrada);
}

bool EstaCifrada(const QString& guardada) { return guardada.startsWith(QLatin1String(crypto_pwhash_STRPREFIX)); }

bool EsLaClave(const QString& guardada, const QString& clave) {
  if (!EstaCifrada(guardada)) return Recortar(guardada) == Recortar(clave);
  const QByteArray g = guardada.toLatin1(), b = bytesDe(clave);
  return lista() &&
         crypto_pwhash_str_verify(g.constData(), b.constData(), static_cast<unsigned long long>(b.size())) == 0;
}
