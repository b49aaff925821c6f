#include "platform/ui/linea_estado.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "platform/ui/tema.h"

namespace {

// A name too long for its place ends in dots instead of in the middle of a letter.
class RotuloQueSeAcorta final : public QLabel {
 public:
  RotuloQueSeAcorta() {
    setProperty("seAcorta", true);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter p(this);
    p.setPen(palette().color(QPalette::WindowText));
    p.drawText(rect(), alignment(), fontMetrics().elidedText(text(), Qt::ElideRight, width()));
  }
};

void conexion(QLabel* l, const QString& nombre, bool responde) {
  l->setText(nombre + (responde ? QStringLiteral(": conectada") : QStringLiteral(": sin conexión")));
  tema::aplicarRol(l, "papel", responde ? QStringLiteral("bien") : QStringLiteral("alto"));
}

}  // namespace

LineaEstado::LineaEstado(QWidget* padre) : QFrame(padre) {
  setObjectName(QStringLiteral("lineaEstado"));
  setProperty("papel", "estado");
  auto* lineas = new QVBoxLayout(this);
  lineas->setContentsMargins(16, tema::px(6), 16, tema::px(6));
  lineas->setSpacing(2);
  auto* fila = new QHBoxLayout;
  fila->setSpacing(20);
  lineas->addLayout(fila);
  // clang-format off
  const struct { QLabel*& rotulo; const char* nombre; } rotulos[] = {
      {caja_, "lblEstadoCaja"},       {turno_, "lblEstadoTurno"},       {usuario_, "lblEstadoUsuario"},
      {tc_, "lblEstadoTC"},           {central_, "lblEstadoCentral"},   {clientes_, "lblEstadoClientes"},
      {papel_, "lblEstadoPapel"},
  };
  // clang-format on
  for (const auto& r : rotulos) {
    r.rotulo = &r.rotulo == &papel_ ? new RotuloQueSeAcorta : new QLabel;
    r.rotulo->setObjectName(QLatin1String(r.nombre));
    r.rotulo->setTextFormat(Qt::PlainText);
    fila->addWidget(r.rotulo);
  }
  // A line of its own, there only while something is wrong.
  aviso_ = new RotuloQueSeAcorta;
  aviso_->setObjectName(QStringLiteral("lblEstadoAviso"));
  aviso_->setTextFormat(Qt::PlainText);
  aviso_->setProperty("papel", "alto");
  aviso_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  aviso_->hide();
  lineas->addWidget(aviso_);
  // The last paper takes what is left; a long printer's name must not widen the window.
  papel_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  fila->setStretchFactor(papel_, 1);
}

void LineaEstado::mostrar(const DatosEstado& d) {
  caja_->setText(QStringLiteral("Caja ") + d.caja);
  turno_->setText(d.turno.isEmpty() ? QStringLiteral("Sin turno") : QStringLiteral("Turno ") + d.turno);
  usuario_->setText(QStringLiteral("Usuario ") + d.usuario);
  tc_->setText(d.tipoCambio.isEmpty() ? QStringLiteral("Sin T.C.") : QStringLiteral("T.C. ") + d.tipoCambio);
  conexion(central_, QStringLiteral("Central"), d.central);
  conexion(clientes_, QStringLiteral("Clientes"), d.clientes);
  aviso_->setText(d.aviso);
  aviso_->setToolTip(d.aviso);
  aviso_->setVisible(!d.aviso.isEmpty());
  papel_->setText(d.papel);
  papel_->setToolTip(d.papel);
}
