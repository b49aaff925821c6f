#include "sale/frm_caja_full_paneles.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "foundation/rutinas.h"
#include "platform/ui/cifra.h"
#include "platform/ui/tema.h"

QChar filtroImporte(QChar tecla) { return FiltrarTecla(tecla, {ClaseTecla::Decimal}); }

namespace {

constexpr int kAnchoImporte = 112;

QChar filtroCodigo(QChar tecla) { return FiltrarTecla(tecla, {ClaseTecla::Digitos}); }

Campo* campoImporte(Panel* panel, const QString& nombre, const QString& etiqueta, Enlaces& enlaces, QString& campo) {
  Campo* c = panel->importe(nombre, etiqueta);
  c->setMinimumWidth(tema::px(kAnchoImporte));
  c->filtro = filtroImporte;
  enlaces.texto(c, campo);
  return c;
}

QLabel* cifra(const QString& nombre, const QString& papel, Enlaces& enlaces, const QString& campo) {
  auto* l = new Cifra;
  l->setProperty("papel", papel);
  l->setTextFormat(Qt::PlainText);
  l->setObjectName(nombre);
  l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  enlaces.rotulo(l, campo);
  return l;
}

QFrame* nuevaPantalla(Enlaces& enlaces, CajaRegistradoraFull& v) {
  auto* marco = new QFrame;
  marco->setObjectName(QStringLiteral("fraTotal"));
  marco->setProperty("papel", "pantalla");
  auto* g = new QGridLayout(marco);
  g->setContentsMargins(16, 4, 16, 4);
  g->setHorizontalSpacing(tema::px(3 * tema::kPaso));
  g->setVerticalSpacing(0);
  const auto leyenda = [](const QString& t) { return nuevoTexto(t, QStringLiteral("leyenda")); };
  g->addWidget(leyenda(QStringLiteral("TOTAL S/.")), 0, 0);
  g->addWidget(cifra(QStringLiteral("txtSoles"), QStringLiteral("cifra"), enlaces, v.txtSoles), 0, 1, 1, 3);
  g->addWidget(leyenda(QStringLiteral("US$")), 1, 0);
  g->addWidget(cifra(QStringLiteral("txtDolares"), QStringLiteral("articulo"), enlaces, v.txtDolares), 1, 1);
  g->addWidget(leyenda(QStringLiteral("VUELTO S/.")), 1, 2, Qt::AlignRight | Qt::AlignVCenter);
  g->addWidget(cifra(QStringLiteral("lblVuelto"), QStringLiteral("vuelto"), enlaces, v.lblVuelto), 1, 3);
  // Room for any usual amount from the start, so that none moves when it grows; a huge one shrinks.
  g->setColumnMinimumWidth(1, tema::px(124));
  g->setColumnMinimumWidth(3, tema::px(196));
  g->setColumnStretch(3, 1);
  return marco;
}

}  // namespace

PanelPago nuevoPanelPago(Enlaces& enlaces, CajaRegistradoraFull& v) {
  PanelPago r;
  auto* panel = new Panel({}, 2);
  panel->setObjectName(QStringLiteral("frmVuelto"));
  r.frmVuelto = panel;
  r.txtEfectivoSoles = campoImporte(panel, QStringLiteral("txtEfectivoSoles"), QStringLiteral("&Efectivo:  S/."),
                                    enlaces, v.txtEfectivoSoles);
  r.txtEfectivoDolares =
      campoImporte(panel, QStringLiteral("txtEfectivoDolares"), QStringLiteral("US$"), enlaces, v.txtEfectivoDolares);
  r.txtVueltoSoles =
      campoImporte(panel, QStringLiteral("txtVueltoSoles"), QStringLiteral("Vuelto:  S/."), enlaces, v.txtVueltoSoles);
  r.txtVueltoSoles->setReadOnly(true);
  r.txtVueltoSoles->setFocusPolicy(Qt::NoFocus);
  r.txtVueltoDolares =
      campoImporte(panel, QStringLiteral("txtVueltoDolares"), QStringLiteral("US$"), enlaces, v.txtVueltoDolares);
  r.fraTotal = nuevaPantalla(enlaces, v);
  return r;
}

PanelesAdelanto nuevosPanelesAdelanto(Enlaces& enlaces, CajaRegistradoraFull& v) {
  PanelesAdelanto r;
  const auto texto = [&enlaces](Panel* panel, const QString& nombre, const QString& etiqueta, QString& campo) {
    Campo* c = panel->campo(nombre, etiqueta);
    enlaces.texto(c, campo);
    return c;
  };
  const auto busca = [](Panel* panel, const QString& nombre, const QString& rotulo) {
    auto* b = nuevoBoton(nombre, rotulo);
    panel->agregar({}, b);
    return b;
  };

  auto* adelantado = new Panel({}, 2);
  adelantado->setObjectName(QStringLiteral("fraPagoAdelantado"));
  r.fraPagoAdelantado = adelantado;
  r.txtPagoAdelantado = campoImporte(adelantado, QStringLiteral("txtPagoAdelantado"),
                                     QStringLiteral("&PAGO ADELANTADO:"), enlaces, v.txtPagoAdelantado);
  r.txtPADEDolares =
      campoImporte(adelantado, QStringLiteral("txtPADEDolares"), QStringLiteral("US$"), enlaces, v.txtPADEDolares);

  auto* datos = new Panel(QStringLiteral("Datos de Pago Adelantado"), 2);
  datos->setObjectName(QStringLiteral("frapade"));
  r.frapade = datos;
  r.txtPADE = texto(datos, QStringLiteral("txtPADE"), QStringLiteral("TX"), v.txtPADE);
  r.txtPADE->filtro = filtroCodigo;
  r.cmdBuscaPago = busca(datos, QStringLiteral("cmdBuscaPago"), QStringLiteral("ALT+&P"));
  // Both tell of the advance payment that was picked.
  enlaces.texto(datos->fijo(QStringLiteral("txtimportepago"), QStringLiteral("PAGO")), v.txtimportepago);
  enlaces.texto(datos->fijo(QStringLiteral("txtGlosa1"), QStringLiteral("GLOSA")), v.txtGlosa1);

  auto* hoja = new QWidget;
  auto* v2 = new QVBoxLayout(hoja);
  v2->setContentsMargins(6, 6, 6, 6);
  auto* campos = new Panel({}, 2);
  r.txtTX = texto(campos, QStringLiteral("txtTX"), QStringLiteral("TX:"), v.txtTX);
  r.txtTX->filtro = filtroCodigo;
  r.cmdPagoAdelantado = busca(campos, QStringLiteral("cmdPagoAdelantado"), QStringLiteral("Ver Pago Adelantado:"));
  Campo* glosa = texto(campos, QStringLiteral("txtGlosa"), QStringLiteral("Glosa:"), v.txtGlosa);
  glosa->setProperty("textoLibre", true);
  Campo* estado = campos->fijo(QStringLiteral("txtEstado"), QStringLiteral("Estado:"));
  estado->setText(QStringLiteral("INGRESADO"));
  v2->addWidget(campos);
  v2->addStretch();
  r.pestana = hoja;
  return r;
}
