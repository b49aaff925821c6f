#pragma once
// Statements spoilt at random, the same for the same seed.
#include <QRegularExpression>
#include <random>

#include "apoyo/casos.h"
#include "platform/sql/token.h"
#include "sql_banco.h"

using Azar = std::mt19937_64;

inline qsizetype hasta(Azar& a, qsizetype n) {
  return static_cast<qsizetype>(a() % static_cast<quint64>(std::max<qsizetype>(n, 1)));
}

// The statement with a few of its tokens taken out, doubled, swapped, or replaced by one that is apt to do harm.
inline QString mutar(const QString& sql, Dialecto d, Azar& a) {
  static const QStringList kVeneno = [] {
    QStringList piezas;
    for (const auto& c : leerCasos("platform/veneno")) piezas << c["pieza"];
    return piezas;
  }();
  QStringList partes;
  for (const Token& t : separar(sql, d)) {
    if (t.tipo != TipoToken::Fin) partes << t.texto.toString();
  }
  const qsizetype cambios = 1 + hasta(a, 3);
  for (qsizetype i = 0; i < cambios && !partes.isEmpty(); ++i) {
    const qsizetype k = hasta(a, partes.size());
    static const QStringList kValores = {u8("0"),   u8("1"),    u8("'01'"), u8("12"),  u8("'12'"),
                                         u8("1.5"), u8("NULL"), u8("'Ñ'"),  u8("'x'"), u8("''")};
    const bool esValor = partes[k].startsWith(u'\'') || (!partes[k].isEmpty() && partes[k][0].isDigit());
    if (hasta(a, 2) == 0) {  // half of them stay whole: only a value changes
      if (esValor) partes[k] = kValores[hasta(a, kValores.size())];
      continue;
    }
    switch (hasta(a, 6)) {
      case 0: partes.removeAt(k); break;
      case 1: partes.insert(k, partes[k]); break;
      case 2: partes.swapItemsAt(k, hasta(a, partes.size())); break;
      case 3: partes.insert(k, kVeneno[hasta(a, kVeneno.size())]); break;
      case 4: partes[k] = kVeneno[hasta(a, kVeneno.size())]; break;
      default: {  // cut or change one character
        QString& p = partes[k];
        if (hasta(a, 2) == 0) p.chop(1);
        else p.insert(hasta(a, p.size() + 1), QChar(static_cast<char16_t>(32 + hasta(a, 300))));
      }
    }
  }
  return partes.join(hasta(a, 4) == 0 ? u8("  ") : u8(" "));
}

// What ends or begins transactions, or is the engine's own business.
inline bool noSeMuta(const QString& sql) {
  return sql.contains(QRegularExpression(u8("^\\s*(commit|rollback|end|begin|vacuum|pragma|detach|release)"),
                                         QRegularExpression::CaseInsensitiveOption));
}

// TARVOPOS_FUZZ says how many, else TARVOPOS_LARGO whether it is the long run.
inline int cuantasMutaciones(int corto, int largo) {
  if (qEnvironmentVariableIsSet("TARVOPOS_FUZZ")) return qEnvironmentVariableIntValue("TARVOPOS_FUZZ");
  return qEnvironmentVariableIsSet("TARVOPOS_LARGO") ? largo : corto;
}

inline quint64 semillaDeMutaciones(int cuantas) {
  const quint64 semilla = qEnvironmentVariableIsSet("TARVOPOS_FUZZ_SEMILLA")
                              ? qEnvironmentVariable("TARVOPOS_FUZZ_SEMILLA").toULongLong()
                              : 20261124;
  std::printf("TARVOPOS_FUZZ_SEMILLA=%llu, %d statements\n", static_cast<unsigned long long>(semilla), cuantas);
  return semilla;
}
