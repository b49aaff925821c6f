#include "platform/sql/comparacion.h"

#include "platform/text/texto.h"

namespace {

class Parecido {
 public:
  Parecido(QStringView texto, QStringView patron, bool jet, QChar escape)
      : t_(texto), p_(patron), jet_(jet), escape_(escape) {}

  // Backtracks only to the last run of any characters, so a long pattern can't hang the desk.
  bool correr() {
    qsizetype i = 0, k = 0, vuelveT = -1, vuelveP = -1;
    while (i < t_.size()) {
      qsizetype sigue = k;
      if (k < p_.size() && cualquiera(k)) {
        vuelveP = ++k;
        vuelveT = i;
      } else if (k < p_.size() && uno(t_[i], sigue)) {
        k = sigue;
        ++i;
      } else if (vuelveP >= 0) {
        k = vuelveP;
        i = ++vuelveT;
      } else {
        return false;
      }
    }
    while (k < p_.size() && cualquiera(k)) ++k;
    return k == p_.size();
  }

 private:
  bool cualquiera(qsizetype k) const { return p_[k] == u'%' || (jet_ && p_[k] == u'*'); }

  // Whether the pattern's element at `k` takes `c`; k moves behind the element.
  bool uno(QChar c, qsizetype& k) const {
    const QChar q = p_[k++];
    if (!escape_.isNull() && q == escape_ && k < p_.size()) return igual(p_[k++], c);
    if (q == u'_' || (jet_ && q == u'?')) return true;
    if (jet_ && q == u'#') return c >= u'0' && c <= u'9';
    if (q == u'[') {
      const qsizetype cierra = p_.indexOf(u']', k + 1);
      if (cierra > 0) {
        const QStringView clase = p_.mid(k, cierra - k);
        k = cierra + 1;
        return enClase(c, clase, jet_);
      }
    }
    return igual(q, c);
  }

  static bool igual(QChar a, QChar b) { return a.toCaseFolded() == b.toCaseFolded(); }

  static bool enClase(QChar c, QStringView clase, bool jet) {
    const bool no = clase.size() > 1 && (clase[0] == u'^' || (jet && clase[0] == u'!'));
    if (no) clase = clase.mid(1);
    const QChar x = c.toCaseFolded();
    for (qsizetype i = 0; i < clase.size(); ++i) {
      const bool tramo = i + 2 < clase.size() && clase[i + 1] == u'-';
      const QChar a = clase[i].toCaseFolded();
      const QChar b = tramo ? clase[i + 2].toCaseFolded() : a;
      if (x >= a && x <= b) return !no;
      if (tramo) i += 2;
    }
    return no;
  }

  QStringView t_, p_;
  bool jet_;
  QChar escape_;
};

}  // namespace

int compararTextosSql(QString a, QString b, bool sinFinales) {
  if (sinFinales) {
    while (a.endsWith(u' ')) a.chop(1);
    while (b.endsWith(u' ')) b.chop(1);
  }
  if (a == b) return 0;
  const QString fa = a.toCaseFolded();
  const QString fb = b.toCaseFolded();
  if (fa == fb) return 0;
  const int orden = CompararEspanol(fa, fb);
  return orden != 0 ? orden : fa.compare(fb);
}

bool pareceSql(QStringView texto, QStringView patron, Dialecto dialecto, QChar escape) {
  return Parecido(texto, patron, dialecto == Dialecto::Jet, escape).correr();
}

QStringList variantesDeCaso(const QString& texto) {
  QStringList v = iniciosDeCaso(texto);
  if (v[0].size() < texto.size()) v.clear();
  return v;
}

QStringList iniciosDeCaso(const QString& texto) {
  constexpr qsizetype kVariantes = 8;
  constexpr char16_t kOtrosAlfabetos = 0x180;  // where a letter may have more than two forms
  QStringList v{texto};
  qsizetype i = 0;
  for (; i < texto.size(); ++i) {
    const QChar c = texto[i], baja = c.toLower(), alta = c.toUpper();
    if (c.unicode() < 0x80) continue;
    if (c.unicode() >= kOtrosAlfabetos || c.toCaseFolded() != baja || qMin(baja, alta).unicode() < 0x80) break;
    if (alta == baja) continue;
    if (v.size() == kVariantes) break;
    const qsizetype n = v.size();
    for (qsizetype k = 0; k < n; ++k) {
      QString otra = v[k];
      otra[i] = c == baja ? alta : baja;
      v << otra;
    }
  }
  for (QString& t : v) t.truncate(i);
  return v;
}

QString inicioFijo(const QString& patron, Dialecto dialecto) {
  const QStringView especiales = dialecto == Dialecto::Jet ? QStringView(u"%*_?#[") : QStringView(u"%_[");
  qsizetype n = 0;
  while (n < patron.size() && !especiales.contains(patron[n])) ++n;
  return patron.left(n);
}
