#include "platform/ui/pintor_celda.h"

#include <QPainter>
#include <QWidget>

#include "platform/ui/tema.h"

namespace {

void pintarBoton(QPainter* p, const QRect& zona) {
  const QRect boton(zona.center().x() - 14, zona.center().y() - 10, 28, 21);
  p->setPen(QColor(tema::kLineaCampo));
  p->setBrush(QColor(tema::kFondo));
  p->drawRoundedRect(boton, 3, 3);
  p->setPen(QColor(tema::kTinta));
  p->drawText(boton, Qt::AlignCenter, QStringLiteral("…"));
}

}  // namespace

void PintorCelda::paint(QPainter* p, const QStyleOptionViewItem& o, const QModelIndex& celda) const {
  const bool elegida = o.state & QStyle::State_Selected;
  const bool inactiva = celda.data(Inactiva).toBool();
  p->save();
  p->fillRect(o.rect, elegida ? QColor(tema::kAccion) : QColor(tema::kSuperficie));
  p->setFont(o.font);
  QRect zona = o.rect.adjusted(6, 0, -6, 0);
  if (celda.data(EsBoton).toBool()) {
    pintarBoton(p, o.rect);
  } else {
    if (inactiva && celda.column() == 0) {
      static const QIcon marca = tema::icono(QStringLiteral("inactivo"));
      marca.paint(p, QRect(zona.left(), zona.center().y() - 9, 18, 18));
      zona.setLeft(zona.left() + 24);
    }
    p->setPen(elegida ? QColor(Qt::white) : QColor(inactiva ? tema::kTintaSuave : tema::kTinta));
    const auto alineacion = Qt::Alignment(celda.data(Qt::TextAlignmentRole).toInt()) | Qt::AlignVCenter;
    const QString texto = celda.data(Qt::DisplayRole).toString();
    const QFontMetrics medida(o.font);
    const QString cabe = medida.elidedText(texto, Qt::ElideRight, zona.width());
    if ((alineacion & Qt::AlignRight) && cabe != texto) {  // a figure shrinks, it loses no digit
      QFont f = o.font;
      f.setPointSizeF(f.pointSizeF() * zona.width() / medida.horizontalAdvance(texto) * 0.98);
      p->setFont(f);
      p->drawText(zona, int(alineacion) | Qt::TextSingleLine, texto);
    } else {
      p->drawText(zona, int(alineacion) | Qt::TextSingleLine, cabe);
    }
  }
  p->restore();
}

void pintarVacio(QWidget* donde, const QString& texto, int desde) {
  const QRect lugar = donde->rect().adjusted(16, desde, -16, 0);
  if (texto.isEmpty() || lugar.height() < donde->fontMetrics().height()) return;
  QPainter p(donde);
  p.setPen(QColor(tema::kTintaSuave));
  p.drawText(lugar, Qt::AlignCenter | Qt::TextWordWrap, texto);
}
