#include "sale/frm_caja_full_liquidacion.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "foundation/rutinas.h"
#include "platform/ui/tema.h"

namespace {

// What the two lists differ in. All columns stand in view.
const struct {
  QStringView titulo, leyendaTotal, nombreTotal, vacia;
  double comunes;  // share of the width that the six take
  std::vector<ColumnaLista> propias;
  // clang-format off
} kListas[] = {
    {u"PADE / PADV", u"Total PADE/PADV (S/.):", u"txtTotalPA", u"Sin pagos adelantados", 0.58,
     {{QStringLiteral("Monto Orig."), 0.15, true, ColumnaLista::Texto}, {QStringLiteral("Cliente - Glosa"), 0.27}}},
    {u"N/C", u"Total N/C (S/.):", u"txtTotalNC", u"Sin notas de consumo", 0.85,
     {{QStringLiteral("PADE/PADV"), 0.15}}},
};
// clang-format on

std::vector<ColumnaLista> columnasDe(int lista) {
  // clang-format off
  const struct { QStringView titulo; double ancho; bool derecha; ColumnaLista::Clase clase; } kComunes[] = {
      {u"TX", 0.12, false, ColumnaLista::Numero},         {u"Tipo", 0.12, false, ColumnaLista::Texto},
      {u"Doc", 0.17, false, ColumnaLista::Texto},         {u"Tarjeta", 0.2, false, ColumnaLista::Texto},
      {u"Total(S/.)", 0.19, true, ColumnaLista::Numero},  {u"Fecha", 0.2, false, ColumnaLista::Fecha}};
  std::vector<ColumnaLista> columnas;
  for (const auto& c : kComunes) {
    columnas.push_back({c.titulo.toString(), c.ancho * kListas[lista].comunes, c.derecha, c.clase});
  }
  // clang-format on
  columnas.insert(columnas.end(), kListas[lista].propias.begin(), kListas[lista].propias.end());
  return columnas;
}

QStringList celdasDe(const LineaTX& l, int lista) {
  QStringList c{l.tx, l.tipo, l.doc, l.tarjeta, l.total, l.fecha};
  if (lista == 0) c << l.original << l.clienteGlosa;
  else c << l.pade;
  return c;
}

QPushButton* boton(QHBoxLayout* fila, const char* nombre, int lista, const QString& rotulo) {
  auto* b = nuevoBoton(QStringLiteral("%1(%2)").arg(QLatin1String(nombre)).arg(lista), rotulo);
  fila->addWidget(b);
  return b;
}

}  // namespace

void PanelLiquidacion::mostrar(const CajaRegistradoraFull& v) {
  for (int n = 0; n < 2; ++n) {
    const auto i = static_cast<size_t>(n);
    if (mostradas_[i] == v.lvwTX[i]) continue;
    mostradas_[i] = v.lvwTX[i];
    std::vector<FilaLista> filas;
    for (const auto& l : v.lvwTX[i]) filas.push_back({celdasDe(l, n), l.tx});
    lvwTX[i]->llenar(std::move(filas));
  }
}

PanelLiquidacion nuevoPanelLiquidacion(Enlaces& enlaces, CajaRegistradoraFull& v) {
  PanelLiquidacion r;
  r.pestana = new QWidget;
  auto* todo = new QVBoxLayout(r.pestana);
  todo->setContentsMargins(6, 4, 6, 4);
  todo->setSpacing(4);
  for (int n = 0; n < 2; ++n) {
    const auto i = static_cast<size_t>(n);
    const auto& datos = kListas[n];
    auto* fila = new QHBoxLayout;
    fila->setSpacing(tema::px(2 * tema::kPaso));
    auto* titulo = nuevoTexto(datos.titulo.toString());
    titulo->setMinimumWidth(tema::px(96));
    fila->addWidget(titulo);
    r.txtTXL[i] = new Campo(QStringLiteral("txtTXL(%1)").arg(n));
    r.txtTXL[i]->setFixedWidth(tema::px(104));
    r.txtTXL[i]->filtro = [](QChar tecla) { return FiltrarTecla(tecla, {ClaseTecla::Digitos}); };
    enlaces.texto(r.txtTXL[i], v.txtTXL[i]);
    fila->addWidget(r.txtTXL[i]);
    r.CmdAdd[i] = boton(fila, "CmdAdd", n, QStringLiteral("Adicionar"));
    r.cmdTXL[i] = boton(fila, "cmdTXL", n, QStringLiteral("Buscar"));
    r.CmdDel[i] = boton(fila, "CmdDel", n, QStringLiteral("Eliminar"));
    fila->addStretch();
    fila->addWidget(nuevoTexto(datos.leyendaTotal.toString(), QStringLiteral("suave")));
    auto* total = nuevoFijo(datos.nombreTotal.toString());
    total->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    total->setFixedWidth(tema::px(120));
    enlaces.texto(total, n == 0 ? v.txtTotalPA : v.txtTotalNC);
    fila->addWidget(total);
    todo->addLayout(fila);
    r.lvwTX[i] = new Lista(QStringLiteral("lvwTX(%1)").arg(n), columnasDe(n));
    r.lvwTX[i]->textoVacio = datos.vacia.toString();
    r.lvwTX[i]->setMinimumHeight(tema::px(59));  // titles and a row
    todo->addWidget(r.lvwTX[i], 1);
  }
  return r;
}
