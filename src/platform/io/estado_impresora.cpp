#include "platform/io/estado_impresora.h"

#include "platform/io/linea_impresora.h"

namespace {

constexpr int kRespuesta_ms = 500, kPreguntas = 4;
const QByteArray kPregunta("\x10\x04\x01\x10\x04\x02\x10\x04\x03\x10\x04\x04");

bool esRespuesta(char b) { return (static_cast<unsigned char>(b) & 0x93) == 0x12; }

}  // namespace

std::optional<QString> EstadoImpresora::impedimento() const {
  if (tapaAbierta) return QStringLiteral("la impresora tiene la tapa abierta");
  if (sinPapel) return QStringLiteral("la impresora no tiene papel");
  if (error) return QStringLiteral("la impresora tiene un error; apáguela y vuelva a encenderla");
  if (fueraDeLinea) return QStringLiteral("la impresora está fuera de línea");
  return {};
}

EstadoImpresora EstadoDeRespuestas(const QByteArray& bytes) {
  EstadoImpresora e;
  int n = 0;
  for (const char b : bytes) {
    if (!esRespuesta(b)) continue;
    e.responde = true;
    const auto con = [b](int bits) { return (b & bits) != 0; };
    switch (++n) {
      case 1: e.fueraDeLinea = con(0x08); break;
      case 2:
        e.tapaAbierta = con(0x04);
        e.sinPapel = con(0x20);
        e.error = con(0x40);
        break;
      case 3: e.error = e.error || con(0x28); break;  // the cutter, or one that needs a restart
      case 4:
        e.pocoPapel = con(0x0C);
        e.sinPapel = e.sinPapel || con(0x60);
        break;
      default: break;
    }
  }
  return e;
}

EstadoImpresora PreguntarEstado(LineaImpresora& linea) {
  (void)linea.leer(64, 0);  // what nobody asked for
  if (linea.escribir(kPregunta)) return {};
  return EstadoDeRespuestas(linea.leer(kPreguntas, kRespuesta_ms));
}
