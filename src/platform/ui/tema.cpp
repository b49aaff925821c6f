#include "platform/ui/tema.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QRegularExpression>
#include <QScreen>
#include <QStyleFactory>
#include <QStyleOption>
#include <QSvgRenderer>
#include <QVariant>
#include <QWidget>

using namespace tema;

// The drawings lie in a static library, which has to be told that somebody needs them.
static void cargarDibujos() { Q_INIT_RESOURCE(iconos); }

namespace {

// Fusion without its own idea of focus (the ring is drawn by AnilloFoco) and with plain, quiet timing.
class Estilo final : public QProxyStyle {
 public:
  Estilo() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

  void drawPrimitive(PrimitiveElement e, const QStyleOption* o, QPainter* p, const QWidget* w) const override {
    if (e == PE_FrameFocusRect) return;
    QProxyStyle::drawPrimitive(e, o, p, w);
  }
  int styleHint(StyleHint h, const QStyleOption* o, const QWidget* w, QStyleHintReturn* r) const override {
    switch (h) {
      case SH_Widget_Animation_Duration: return 0;
      case SH_UnderlineShortcut: return 1;
      case SH_ItemView_ActivateItemOnSingleClick: return 0;
      default: return QProxyStyle::styleHint(h, o, w, r);
    }
  }
};

QString color(QRgb c) { return QColor(c).name(); }

// Longer names stand first: "@fondo" is the beginning of two others.
QString conPaleta(QString hoja) {
  // clang-format off
  const struct { const char* nombre; QRgb valor; } colores[] = {
      {"@fondoCuidado", kFondoCuidado},   {"@fondoFijo", kFondoFijo},     {"@fondo", kFondo},
      {"@superficie", kSuperficie},       {"@tintaSuave", kTintaSuave},   {"@tinta", kTinta},
      {"@lineaCampo", kLineaCampo},       {"@linea", kLinea},             {"@accion", kAccion},
      {"@foco", kFoco},                   {"@pantalla", kPantalla},       {"@cifra", kCifra},
      {"@vuelto", kVuelto},               {"@bien", kBien},               {"@cuidado", kCuidado},
      {"@alto", kAlto},                   {"@fijo", kFijo},               {"@teclaAsignada", kTeclaAsignada},
      {"@teclaLibre", kTeclaLibre},
  };
  // clang-format on
  for (const auto& c : colores) hoja.replace(QLatin1String(c.nombre), color(c.valor));
  return hoja;
}

const char* const kHoja = R"(
QWidget { color: @tinta; font-size: 12pt; }
QDialog, QMainWindow { background: @fondo; }
QToolTip { background: @superficie; color: @tinta; border: 1px solid @lineaCampo; }

QMenuBar, QMenu { background: @superficie; font-size: 10pt; }
QMenuBar { border-bottom: 1px solid @linea; }
QMenuBar::item { padding: 6px 10px; background: transparent; }
QMenu { border: 1px solid @lineaCampo; padding: 4px 0px; }
QMenu::item { padding: 6px 28px 6px 20px; }
QMenuBar::item:selected, QMenu::item:selected { background: @accion; color: #FFFFFF; }
QMenu::item:disabled, QMenuBar::item:disabled { color: @lineaCampo; background: transparent; }
QMenu::separator { height: 1px; background: @linea; margin: 4px 8px; }

QToolBar { background: @superficie; border: 0px; border-bottom: 1px solid @linea; spacing: 2px; padding: 6px; }
QToolBar::separator { width: 1px; background: @linea; margin: 6px 6px; }
QToolButton { font-size: 10pt; padding: 4px 6px; border: 1px solid transparent; border-radius: 4px; min-width: 58px; }
QToolButton:hover { background: @fondo; border-color: @linea; }
QToolButton:pressed { background: @fondoFijo; }
QToolButton:disabled { color: @lineaCampo; }

QLabel { background: transparent; }
QLabel:disabled { color: @fijo; }
QLabel[papel="titular"] { font-size: 28pt; font-weight: 600; }
QLabel[papel="anulada"] { font-size: 28pt; font-weight: 600; color: @alto; }
QLabel[papel="titulo"] { font-size: 12pt; font-weight: 600; }
QLabel[papel="sentencia"] { font-size: 12pt; color: @tinta; }
QLabel[papel="suave"] { font-size: 11pt; color: @tintaSuave; }
QLabel[papel="bien"] { font-size: 11pt; color: @bien; font-weight: 600; }
QLabel[papel="cuidado"] { font-size: 12pt; color: @cuidado; background: @fondoCuidado; padding: 8px 12px;
    border-radius: 4px; }
QLabel[papel="ocupado"] { font-size: 14pt; color: @cuidado; background: @fondoCuidado; padding: 16px 28px;
    border: 1px solid @cuidado; border-radius: 6px; }
QLabel[papel="alto"] { font-size: 11pt; color: @alto; font-weight: 600; }

QFrame[papel="tarjeta"] { background: @superficie; border: 1px solid @linea; border-radius: 6px; }
QFrame[papel="pantalla"] { background: @pantalla; border: 0px; border-radius: 6px; }
QFrame[papel="pantalla"] QLabel { color: #FFFFFF; }
QFrame[papel="pantalla"] QLabel[papel="leyenda"] { font-size: 12pt; }
QFrame[papel="pantalla"] QLabel[papel="articulo"] { font-size: 18pt; }
QFrame[papel="pantalla"] QLabel[papel="cifra"], QFrame[papel="pantalla"] QLineEdit[papel="cifra"] {
  font-size: 36pt; font-weight: 700; color: @cifra; }
QFrame[papel="pantalla"] QLabel[papel="vuelto"], QFrame[papel="pantalla"] QLineEdit[papel="vuelto"] {
  font-size: 28pt; font-weight: 700; color: @vuelto; }
QFrame[papel="pantalla"] QLineEdit { color: #FFFFFF; background: transparent; border: 0px; font-size: 18pt;
    min-height: 0px; }
QFrame[papel="estado"] { background: @superficie; border: 0px; border-top: 1px solid @linea; }
QFrame[papel="estado"] QLabel { font-size: 11pt; color: @tintaSuave; }
QFrame[papel="estado"] QLabel[papel="bien"] { color: @bien; }
QFrame[papel="estado"] QLabel[papel="alto"] { color: @alto; }
QFrame[papel="indicios"] { background: @fondoFijo; border: 0px; }
QFrame[papel="indicios"] QLabel { font-size: 11pt; color: @tintaSuave; }

QLineEdit, QPlainTextEdit, QComboBox {
  background: @superficie; border: 1px solid @lineaCampo; border-radius: 4px; padding: 0px 8px; font-size: 12pt;
  selection-background-color: @accion; selection-color: #FFFFFF; }
QLineEdit, QComboBox { min-height: 30px; }
QLineEdit:read-only, QLineEdit:disabled, QComboBox:disabled, QPlainTextEdit:read-only {
  background: @fondoFijo; color: @fijo; border-color: @linea; }
QPlainTextEdit[papel="rollo"] {
  background: @superficie; color: @tinta; font-family: "Courier New", "DejaVu Sans Mono", monospace; padding: 8px; }
QLineEdit[papel="pendiente"] { background: #FFFF00; color: @tinta; }
QLineEdit[estado="mal"], QComboBox[estado="mal"], QPlainTextEdit[estado="mal"] { border: 2px solid @alto;
    padding: 0px 7px; }
QComboBox::drop-down { border: 0px; width: 28px; }
QComboBox::down-arrow { image: url(:/iconos/flecha.svg); width: 12px; height: 12px; }
QComboBox QLineEdit { border: 0px; background: transparent; padding: 0px; min-height: 0px; }
QComboBox QAbstractItemView { background: @superficie; selection-background-color: @accion; selection-color: #FFFFFF; }

QPushButton {
  background: @superficie; border: 1px solid @lineaCampo; border-radius: 4px; padding: 0px 16px; min-height: 34px;
  min-width: 76px; font-size: 12pt; }
QPushButton:hover { background: @fondo; }
QPushButton:pressed { background: @fondoFijo; }
QPushButton:disabled { background: @fondoFijo; color: @fijo; border-color: @linea; }
QPushButton[papel="principal"], QPushButton[papel="grande"] { background: @accion; color: #FFFFFF;
    border-color: @accion; }
QPushButton[papel="principal"]:pressed, QPushButton[papel="grande"]:pressed { background: @pantalla; }
QPushButton[papel="principal"]:disabled, QPushButton[papel="grande"]:disabled { background: @fondoFijo; color: @fijo;
    border-color: @linea; }
QPushButton[papel="grande"], QPushButton[papel="mediano"] { font-size: 14pt; min-height: 56px; padding: 0px 28px; }
QPushButton[papel="accion"] { font-size: 11pt; padding: 0px 8px; min-height: 44px; }
QPushButton[papel="tecla"] { background: @teclaLibre; min-width: 94px; min-height: 62px; padding: 0px 4px; }
QPushButton[papel="tecla"][asignada="true"] { background: @teclaAsignada; }
QPushButton[papel="tecla"]:pressed { border: 2px solid @tinta; }

QCheckBox, QRadioButton { spacing: 8px; background: transparent; }
QCheckBox::indicator, QRadioButton::indicator {
  width: 16px; height: 16px; border: 1px solid @lineaCampo; background: @superficie; border-radius: 3px; }
QRadioButton::indicator { border-radius: 9px; }
QCheckBox::indicator:checked { background: @accion; border-color: @accion; image: url(:/iconos/marca.svg); }
QRadioButton::indicator:checked { image: url(:/iconos/punto.svg); }
QCheckBox::indicator:disabled, QRadioButton::indicator:disabled { background: @fondoFijo; border-color: @linea; }
QCheckBox::indicator:checked:disabled { background: @lineaCampo; border-color: @lineaCampo; }
QCheckBox:disabled, QRadioButton:disabled { color: @fijo; }

QTableView {
  background: @superficie; border: 1px solid @lineaCampo; gridline-color: @linea; font-size: 12pt;
  selection-background-color: @accion; selection-color: #FFFFFF; }
QTableView[papel="registro"] { font-size: 14pt; }
QTableView[papel="impreso"], QLineEdit[papel="impreso"] { font-family: "Courier New", "DejaVu Sans Mono"; }
QTableView QLineEdit { border: 0px; border-radius: 0px; padding: 0px 4px; min-height: 0px; }
QLineEdit[letra="chica"] { font-size: 9pt; }
QLineEdit[letra="minima"] { font-size: 7pt; }
QTableView[papel="registro"] QLineEdit { font-size: 14pt; }
QTableView QLineEdit[estado="mal"] { border: 2px solid @alto; padding: 0px 2px; }
QHeaderView { background: @fondoFijo; border: 0px; }
QHeaderView::section {
  background: @fondoFijo; color: @tintaSuave; font-size: 11pt; font-weight: 600; padding: 0px 6px; min-height: 28px;
  border: 0px; border-right: 1px solid @linea; border-bottom: 1px solid @lineaCampo; }

QTabWidget::pane { background: @superficie; border: 1px solid @linea; border-radius: 4px; top: -1px; }
QTabBar::tab { background: @fondoFijo; color: @tintaSuave; border: 1px solid @linea; padding: 6px 16px;
    font-size: 12pt; }
QTabBar::tab:disabled { color: @lineaCampo; }
QTabBar::tab:selected { background: @superficie; color: @tinta; border-bottom-color: @superficie; font-weight: 600; }
QGroupBox { background: @superficie; border: 1px solid @linea; border-radius: 6px; margin-top: 12px;
    padding-top: 10px; }
QGroupBox::title { subcontrol-origin: margin; left: 10px; padding: 0px 4px; color: @tintaSuave; }
QProgressBar { border: 1px solid @linea; border-radius: 4px; background: @superficie; text-align: center;
    min-height: 22px; }
QProgressBar::chunk { background: @accion; }
)";

QPixmap dibujo(const QString& archivo, int lado, qreal opacidad) {
  QSvgRenderer svg(archivo);
  QPixmap px(lado, lado);
  px.fill(Qt::transparent);
  QPainter p(&px);
  p.setOpacity(opacidad);
  svg.render(&p);
  return px;
}

// The windows are made for a screen of 1024 x 768 less a panel and a title bar.
constexpr QSize kMedida{1024, 690};
constexpr qreal kMinima = 0.7;
constexpr QSize kMarco{2, 30};  // what a window manager draws round a window

qreal escala = 1;

qreal escalaDe(const QSize& hay) {
  const qreal cabe = qMin(qreal(hay.width()) / kMedida.width(), qreal(hay.height()) / kMedida.height());
  return qBound(kMinima, cabe, qreal(1));
}

QString aEscala(const QString& hoja) {
  static const QRegularExpression medida(QStringLiteral("\\b(\\d+)(px|pt)\\b"));
  if (escala == 1) return hoja;
  QString sale;
  qsizetype desde = 0;
  for (auto i = medida.globalMatch(hoja); i.hasNext();) {
    const auto m = i.next();
    const int n = m.captured(1).toInt();
    sale += hoja.mid(desde, m.capturedStart() - desde);
    sale += QString::number(m.captured(2) == u"pt" ? tema::pt(n) : tema::px(n)) + m.captured(2);
    desde = m.capturedEnd();
  }
  return sale + hoja.mid(desde);
}

}  // namespace

namespace tema {

int px(int medida) { return medida == 0 ? 0 : qMax(1, qRound(medida * escala)); }

int pt(int puntos) { return qMax(7, qRound(puntos * escala)); }

QSize sitio(const QWidget* ventana) {
  const QScreen* s = ventana && ventana->screen() ? ventana->screen() : QGuiApplication::primaryScreen();
  return s ? s->availableSize() - kMarco : kMedida;
}

void aplicar(QApplication& app) {
  cargarDibujos();
  app.setWindowIcon(QIcon(logo(64)));
  if (const QScreen* s = QGuiApplication::primaryScreen()) escala = escalaDe(s->availableSize() - kMarco);
  app.setStyle(new Estilo);
  QPalette pal;
  pal.setColor(QPalette::Window, QColor(kFondo));
  pal.setColor(QPalette::Base, QColor(kSuperficie));
  pal.setColor(QPalette::AlternateBase, QColor(kFondo));
  pal.setColor(QPalette::Button, QColor(kSuperficie));
  for (auto rol : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) pal.setColor(rol, QColor(kTinta));
  pal.setColor(QPalette::PlaceholderText, QColor(kTintaSuave));
  pal.setColor(QPalette::Highlight, QColor(kAccion));
  pal.setColor(QPalette::HighlightedText, Qt::white);
  app.setPalette(pal);
  QFont f = app.font();
  if (QFontDatabase::hasFamily(QStringLiteral("DejaVu Sans")) && f.family().isEmpty())
    f.setFamily(QStringLiteral("DejaVu Sans"));
  f.setPointSize(pt(kPtCampo));
  app.setFont(f);
  app.setStyleSheet(aEscala(conPaleta(QString::fromUtf8(kHoja))));
}

void aplicarRol(QWidget* control, const char* propiedad, const QVariant& valor) {
  if (control->property(propiedad) == valor) return;
  control->setProperty(propiedad, valor);
  control->style()->unpolish(control);
  control->style()->polish(control);
  control->update();
}

QIcon icono(const QString& nombre) {
  const QString archivo = QStringLiteral(":/iconos/%1.svg").arg(nombre);
  QIcon ic;
  if (!QSvgRenderer(archivo).isValid()) return ic;
  for (int lado : {24, 48}) {
    ic.addPixmap(dibujo(archivo, lado, 1.0), QIcon::Normal);
    ic.addPixmap(dibujo(archivo, lado, 0.35), QIcon::Disabled);
  }
  return ic;
}

QPixmap logo(int lado) { return dibujo(QStringLiteral(":/iconos/logo.svg"), lado, 1.0); }

QColor banda(int nivel) {
  constexpr QRgb kBandas[] = {0xFFC0C0FF, 0xFFC0FFC0, 0xFFFFE0C0};
  return QColor(kBandas[nivel]);
}

QColor pendiente() { return QColor(QRgb(0xFFFFFF00)); }

QString familiaPapel() {
  for (const QString& f : {QStringLiteral("Courier New"), QStringLiteral("DejaVu Sans Mono")})
    if (QFontDatabase::hasFamily(f)) return f;
  return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

}  // namespace tema
