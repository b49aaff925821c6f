#include "admin/guion_teclas.h"

#include <QtTest/qtestspontaneevent.h>
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMouseEvent>
#include <QPointer>
#include <QPointingDevice>
#include <QWidget>

// How the toolkit's own tests offer a key to shortcuts first: true when one took it.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* o, ulong timestamp, int k, Qt::KeyboardModifiers mods,
                                               const QString& text = QString(), bool autorep = false, ushort count = 1);
QT_END_NAMESPACE

namespace {

struct NombreTecla {
  QStringView nombre;
  Qt::Key tecla;
};

// What the toolkit's own reading of key names lacks or reads otherwise; Enter is the large one.
// clang-format off
const NombreTecla kTeclas[] = {
    {u"Enter", Qt::Key_Return},     {u"Intro", Qt::Key_Return},    {u"Escape", Qt::Key_Escape},
    {u"Delete", Qt::Key_Delete},    {u"Supr", Qt::Key_Delete},     {u"Insert", Qt::Key_Insert},
    {u"PageUp", Qt::Key_PageUp},    {u"PageDown", Qt::Key_PageDown}, {u"Espacio", Qt::Key_Space},
    {u"Backtab", Qt::Key_Backtab},
};
// clang-format on

// clang-format off
const struct { QStringView nombre; Qt::KeyboardModifier mod; Qt::Key tecla; } kModificadores[] = {
    {u"Ctrl", Qt::ControlModifier, Qt::Key_Control},
    {u"Alt", Qt::AltModifier, Qt::Key_Alt},
    {u"Shift", Qt::ShiftModifier, Qt::Key_Shift},
    {u"Meta", Qt::MetaModifier, Qt::Key_Meta},
};
// clang-format on

Qt::Key teclaDe(const QString& caracter) {
  const QKeySequence s(caracter.toUpper());
  return s.isEmpty() ? Qt::Key_unknown : s[0].key();
}

QString textoDe(QKeyCombination c, const QString& nombre) {
  switch (c.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return QStringLiteral("\r");
    case Qt::Key_Tab: return QStringLiteral("\t");
    case Qt::Key_Backspace: return QStringLiteral("\b");
    case Qt::Key_Escape: return QStringLiteral("\x1b");
    case Qt::Key_Delete: return QStringLiteral("\x7f");
    case Qt::Key_Space: return QStringLiteral(" ");
    default: break;
  }
  if (nombre.size() != 1 || (c.keyboardModifiers() & Qt::ControlModifier)) return {};
  return c.keyboardModifiers() & Qt::ShiftModifier ? nombre.toUpper() : nombre;
}

// Sends one key event; a press that is a shortcut of the window goes no further.
void enviar(QPointer<QWidget>& destino, bool baja, Qt::Key tecla, Qt::KeyboardModifiers mods, const QString& texto,
            quint64 momento_ms) {
  if (!destino) return;
  QKeyEvent e(baja ? QEvent::KeyPress : QEvent::KeyRelease, tecla, mods, texto);
  e.setTimestamp(momento_ms);
  QSpontaneKeyEvent::setSpontaneous(&e);
  if (baja && qt_sendShortcutOverrideEvent(destino, e.timestamp(), tecla, mods, texto)) return;
  if (destino) qApp->notify(destino, &e);
}

void enviarRaton(QPointer<QWidget>& destino, QEvent::Type tipo, QPoint lugar) {
  if (!destino) return;
  const Qt::MouseButtons pulsados = tipo == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent e(tipo, lugar, destino->mapToGlobal(lugar), Qt::LeftButton, pulsados, Qt::NoModifier,
                QPointingDevice::primaryPointingDevice());
  QSpontaneKeyEvent::setSpontaneous(&e);
  qApp->notify(destino, &e);
}

}  // namespace

std::optional<TeclaGuion> leerTecla(const QString& nombre) {
  Qt::KeyboardModifiers mods;
  QString resto = nombre;
  for (bool otro = true; otro;) {
    otro = false;
    for (const auto& m : kModificadores) {
      const QString prefijo = m.nombre.toString() + u'+';
      if (resto.size() <= prefijo.size() || !resto.startsWith(prefijo, Qt::CaseInsensitive)) continue;
      mods |= m.mod;
      resto.remove(0, prefijo.size());
      otro = true;
    }
  }
  Qt::Key tecla = Qt::Key_unknown;
  for (const NombreTecla& n : kTeclas)
    if (resto.compare(n.nombre, Qt::CaseInsensitive) == 0) tecla = n.tecla;
  if (tecla == Qt::Key_unknown) {
    const QKeySequence s = QKeySequence::fromString(resto, QKeySequence::PortableText);
    if (s.count() != 1 || s[0].keyboardModifiers() != Qt::NoModifier || s[0].key() == Qt::Key_unknown) return {};
    tecla = s[0].key();
  }
  if (resto.size() == 1 && resto.front().isLetter() && resto.front().isUpper() && mods == Qt::NoModifier) {
    resto = resto.toLower();  // "R" names the key, as in "Alt+R"
  }
  const QKeyCombination c(mods, tecla);
  return TeclaGuion{c, textoDe(c, resto)};
}

TeclaGuion tomarCaracter(QString& texto) {
  const qsizetype n = texto.size() > 1 && texto[0].isHighSurrogate() && texto[1].isLowSurrogate() ? 2 : 1;
  const QString c = texto.first(n);
  texto.remove(0, n);
  if (c == u"\t") return {QKeyCombination(Qt::Key_Tab), c};
  const bool mayuscula = c.toLower() != c;
  return {QKeyCombination(mayuscula ? Qt::ShiftModifier : Qt::NoModifier, n == 1 ? teclaDe(c) : Qt::Key_unknown), c};
}

void pulsarTecla(QWidget* widget, const TeclaGuion& t, quint64 momento_ms) {
  QPointer<QWidget> destino = widget;
  const Qt::KeyboardModifiers todos = t.tecla.keyboardModifiers();
  Qt::KeyboardModifiers puestos;
  for (const auto& m : kModificadores) {
    if (!(todos & m.mod)) continue;
    enviar(destino, true, m.tecla, puestos, {}, momento_ms);
    puestos |= m.mod;
  }
  enviar(destino, true, t.tecla.key(), todos, t.texto, momento_ms);
  enviar(destino, false, t.tecla.key(), todos, t.texto, momento_ms);
  for (const auto& m : kModificadores)
    if (todos & m.mod) enviar(destino, false, m.tecla, todos, {}, momento_ms);
}

void pulsarRaton(QWidget* widget, QPoint lugar) {
  QPointer<QWidget> destino = widget;
  enviarRaton(destino, QEvent::MouseButtonPress, lugar);
  enviarRaton(destino, QEvent::MouseButtonRelease, lugar);
}

void pulsarDosVeces(QWidget* widget, QPoint lugar) {
  QPointer<QWidget> destino = widget;
  pulsarRaton(destino, lugar);
  enviarRaton(destino, QEvent::MouseButtonDblClick, lugar);
  enviarRaton(destino, QEvent::MouseButtonRelease, lugar);
}
