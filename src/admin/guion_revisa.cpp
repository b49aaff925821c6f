#include "admin/guion_revisa.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QStackedWidget>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QToolButton>
#include <algorithm>

#include "platform/ui/anillo_foco.h"
#include "platform/ui/cifra.h"
#include "platform/ui/tecla_articulo.h"
#include "platform/ui/tema.h"

namespace {

constexpr int kMargenCelda = 12;  // both sides
constexpr int kLetraTitulo_pt = 11;

QString nombreDe(const QWidget& w) {
  if (!w.objectName().isEmpty()) return w.objectName();
  if (auto* l = qobject_cast<const QLabel*>(&w)) return QStringLiteral("«%1»").arg(l->text());
  return QString::fromLatin1(w.metaObject()->className());
}

// Parts of the toolkit's own controls, and what lies over the others by intent.
bool esAparte(const QWidget& w) {
  if (!w.isVisible() || w.isWindow() || qobject_cast<const AnilloFoco*>(&w)) return true;
  if (w.objectName() == u"lblOcupado" || w.property("editorDeCelda").toBool()) return true;
  for (const QWidget* p = w.parentWidget(); p && !p->isWindow(); p = p->parentWidget()) {
    if (qobject_cast<const QAbstractItemView*>(p) || qobject_cast<const QComboBox*>(p) ||
        qobject_cast<const QLineEdit*>(p) || qobject_cast<const QAbstractScrollArea*>(p) ||
        qobject_cast<const QTabBar*>(p) || qobject_cast<const QAbstractButton*>(p)) {
      return true;
    }
  }
  return false;
}

bool textoCortado(const QLabel& l) {
  if (l.property("seAcorta").toBool() || qobject_cast<const Cifra*>(&l) || l.text().isEmpty()) return false;
  const QRect r = l.contentsRect();
  return l.wordWrap() ? l.heightForWidth(l.width()) > l.height() : l.sizeHint().width() > l.width() || r.height() < 1;
}

bool botonCortado(const QPushButton& b) {
  if (qobject_cast<const TeclaArticulo*>(&b)) return false;
  QStyleOptionButton o;
  o.initFrom(&b);
  o.text = b.text();
  const int cabe = b.style()->subElementRect(QStyle::SE_PushButtonContents, &o, &b).width();
  return b.fontMetrics().size(Qt::TextShowMnemonic, b.text()).width() > cabe;
}

bool listaCortada(const QComboBox& c) {
  if (c.isEditable()) return false;
  QStyleOptionComboBox o;
  o.initFrom(&c);
  o.editable = false;
  const int cabe = c.style()->subControlRect(QStyle::CC_ComboBox, &o, QStyle::SC_ComboBoxEditField, &c).width();
  return c.fontMetrics().horizontalAdvance(c.currentText()) > cabe;
}

// A figure without its first digits, or what can't be scrolled; a name that is typed may be longer than its field.
bool cifraCortada(const QLineEdit& l) {
  const bool fijo = l.isReadOnly() && l.focusPolicy() == Qt::NoFocus;
  if ((!fijo && !(l.alignment() & Qt::AlignRight)) || l.hasFocus()) return false;
  return l.fontMetrics().horizontalAdvance(l.text()) > l.contentsRect().width() - 4;
}

bool cortado(const QWidget& w) {
  if (auto* l = qobject_cast<const QLabel*>(&w)) return textoCortado(*l);
  if (auto* b = qobject_cast<const QPushButton*>(&w)) return botonCortado(*b);
  if (auto* b = qobject_cast<const QAbstractButton*>(&w)) return b->sizeHint().width() > b->width();
  if (auto* c = qobject_cast<const QComboBox*>(&w)) return listaCortada(*c);
  if (auto* l = qobject_cast<const QLineEdit*>(&w)) return cifraCortada(*l);
  return false;
}

// Dates of the first rows without their year; figures shrink, and a name may be longer than its column.
QStringList fechasCortadas(const QAbstractItemView& t, const QHeaderView& h) {
  static const QRegularExpression fecha(QStringLiteral("^\\d\\d/\\d\\d/\\d{4}"));
  QStringList r;
  for (int fila = 0; fila < std::min(t.model()->rowCount(), 20); ++fila) {
    for (int n = 0; n < h.count(); ++n) {
      const QString texto = t.model()->index(fila, n).data().toString();
      const bool cabe = QFontMetrics(t.font()).horizontalAdvance(texto) + kMargenCelda <= h.sectionSize(n);
      if (!cabe && !h.isSectionHidden(n) && texto.contains(fecha))
        r << QStringLiteral("%1: la fecha «%2» no cabe").arg(nombreDe(t), texto);
    }
  }
  return r;
}

QStringList titulosCortados(const QWidget& w) {
  QStringList r;
  if (auto* t = qobject_cast<const QAbstractItemView*>(&w)) {
    const auto lados = t->findChildren<QHeaderView*>();  // a table has one at its side, too
    const auto suyo = std::find_if(lados.begin(), lados.end(),
                                   [](const QHeaderView* l) { return l->orientation() == Qt::Horizontal; });
    if (suyo == lados.end() || !(*suyo)->isVisible()) return r;
    const QHeaderView* h = *suyo;
    r << fechasCortadas(*t, *h);
    QFont letra = h->font();  // not that of its titles, which the style sheet knows alone
    letra.setPointSize(tema::pt(kLetraTitulo_pt));
    letra.setWeight(QFont::DemiBold);
    for (int n = 0; n < h->count(); ++n) {
      const QString titulo = h->model()->headerData(n, Qt::Horizontal).toString();
      const int pide = QFontMetrics(letra).size(0, titulo).width();
      if (h->isSectionHidden(n) || pide + tema::px(kMargenCelda) <= h->sectionSize(n)) continue;
      r << QStringLiteral("%1: el título «%2» no cabe").arg(nombreDe(w), titulo);
    }
  }
  if (auto* b = qobject_cast<const QTabBar*>(&w)) {
    for (int n = 0; n < b->count(); ++n)
      if (b->tabRect(n).right() > b->width()) r << QStringLiteral("pestaña «%1»: fuera").arg(b->tabText(n));
  }
  return r;
}

QStringList pisados(const QWidget& padre) {
  QStringList r;
  QList<const QWidget*> hijos;
  if (qobject_cast<const QStackedWidget*>(&padre)) return r;
  for (const QObject* o : padre.children()) {
    const auto* w = qobject_cast<const QWidget*>(o);
    if (w && !esAparte(*w)) hijos << w;
  }
  for (int i = 0; i < hijos.size(); ++i) {
    for (int j = i + 1; j < hijos.size(); ++j) {
      const QRect comun = hijos[i]->geometry() & hijos[j]->geometry();
      // The tabs stand on the edge of their page.
      if (comun.width() < 2 || comun.height() < 2 || qobject_cast<const QTabBar*>(hijos[j])) continue;
      r << QStringLiteral("%1 y %2 se pisan").arg(nombreDe(*hijos[i]), nombreDe(*hijos[j]));
    }
  }
  return r;
}

}  // namespace

QStringList faltasDePantalla(const QWidget& pantalla) {
  QStringList r = pisados(pantalla);
  // The screen in memory draws no title bar; a desktop does.
  constexpr QSize kMarco{0, 30};
  const QSize hay = pantalla.screen()->availableSize() - kMarco;
  const QSize minima = pantalla.minimumSizeHint().expandedTo(pantalla.minimumSize());
  const QSize suya = pantalla.isMaximized() ? minima : minima.expandedTo(pantalla.size());
  if (suya.width() > hay.width() || suya.height() > hay.height()) {
    r << QStringLiteral("la pantalla mide %1 x %2 y solo hay %3 x %4")
             .arg(suya.width())
             .arg(suya.height())
             .arg(hay.width())
             .arg(hay.height());
  }
  for (const QWidget* w : pantalla.findChildren<QWidget*>()) {
    if (esAparte(*w)) continue;
    if (!w->parentWidget()->rect().contains(w->geometry())) r << nombreDe(*w) + QStringLiteral(": queda fuera");
    const QSize pide = w->minimumSizeHint(), propio = w->minimumSize();
    const QSize minimo(propio.width() > 0 ? propio.width() : pide.width(),
                       propio.height() > 0 ? propio.height() : pide.height());
    const bool corre = qobject_cast<const QAbstractScrollArea*>(w) || qobject_cast<const QStackedWidget*>(w) ||
                       qobject_cast<const QStackedWidget*>(w->parentWidget());  // what doesn't fit is scrolled to
    if (corre) {
      if (w->height() < 2 * QFontMetrics(w->font()).height()) r << nombreDe(*w) + QStringLiteral(": apretado");
    } else if (w->width() < minimo.width() || w->height() < minimo.height()) {
      r << QStringLiteral("%1: apretado, mide %2 x %3 y pide %4 x %5")
               .arg(nombreDe(*w))
               .arg(w->width())
               .arg(w->height())
               .arg(minimo.width())
               .arg(minimo.height());
    }
    if (cortado(*w)) r << nombreDe(*w) + QStringLiteral(": texto cortado");
    r << titulosCortados(*w) << pisados(*w);
  }
  return r;
}
