#include "platform/ui/linea_estado.h"

#include <QHBoxLayout>
#include <QLabel>

#include "platform/ui/tema.h"

namespace {

void conexion(QLabel* l, const QString& nombre, bool responde) {
  l->setText(nombre + (responde ? QStringLiteral(": conectada") : QStringLiteral(": sin conexión")));
  tema::aplicarRol(l, "papel", responde ? QStringLiteral("bien") : QStringLiteral("alto"));
}

}  // namespace

LineaEstado::LineaEstado(QWidget* padre) : QFrame(padre) {
  setObjectName(QStringLiteral("lineaEstado"));
  setProperty("papel", "estado");
  auto* fila = new QHBoxLayout(this);
  fila->setContentsMargins(16, 6, 16, 6);
  fila->setSpacing(20);
  // clang-format off
  const struct { QLabel*& rotulo; const char* nombre; } rotulos[] = {
      {caja_, "lblEstadoCaja"},       {turno_, "lblEstadoTurno"},       {usuario_, "lblEstadoUsuario"},
      {tc_, "lblEstadoTC"},           {central_, "lblEstadoCentral"},   {clientes_, "lblEstadoClientes"},
      {aviso_, "lblEstadoAviso"},     {papel_, "lblEstadoPapel"},
  };
  // clang-format on
  for (const auto& r : rotulos) {
    r.rotulo = new QLabel;
    r.rotulo->setObjectName(QLatin1String(r.nombre));
    r.rotulo->setTextFormat(Qt::PlainText);
    fila->addWidget(r.rotulo);
  }
  aviso_->setProperty("papel", "alto");
  aviso_->hide();
  // The last paper takes what is left; a long printer's name must not widen the window.
  papel_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
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
  aviso_->setVisible(!d.aviso.isEmpty());
  papel_->setText(d.papel);
  papel_->setToolTip(d.papel);
}

void LineaEstado::ocupado(const QString& texto) {
  // The words take the whole line: in what the others leave they would be cut.
  for (QLabel* l : {turno_, usuario_, tc_, central_, clientes_}) l->setVisible(texto.isEmpty());
  aviso_->setVisible(texto.isEmpty() && !aviso_->text().isEmpty());
  papel_->setText(texto);
  layout()->activate();
  repaint();
}
