#pragma once
// What a ticket printer says of itself when it is asked.
//
// Source: the ESC/POS command set, DLE EOT n (10 04 n), "transmit real-time status", which a printer answers also while
// it is off line: n = 1 the printer, 2 why it is off line, 3 its errors, 4 the sensors of the roll. Every answer is one
// byte with bits 1 and 4 set and bits 0 and 7 clear, which tells it from other traffic.
#include <QByteArray>
#include <QString>
#include <optional>

class LineaImpresora;

struct EstadoImpresora {
  bool responde = false;  // nothing below is known of a printer that doesn't
  bool fueraDeLinea = false, tapaAbierta = false, sinPapel = false, pocoPapel = false, error = false;

  // What keeps it from printing, in words; nothing when nothing does.
  std::optional<QString> impedimento() const;
};

// Asks and waits for the answer half a second at most. A printer that knows no such question doesn't answer.
EstadoImpresora PreguntarEstado(LineaImpresora& linea);

// Reads the answers to n = 1 to 4, in that order; bytes that can be no answer are passed over.
EstadoImpresora EstadoDeRespuestas(const QByteArray& bytes);
