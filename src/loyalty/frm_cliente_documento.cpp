#include "loyalty/frm_cliente_documento.h"

#include <QComboBox>
#include <QLabel>
#include <QSignalBlocker>

#include "foundation/rutinas.h"
#include "platform/ui/campo.h"

namespace {

QChar soloDigitos(QChar tecla) { return FiltrarTecla(tecla, {ClaseTecla::Digitos}); }

}  // namespace

void ControlesCliente::mostrar(const ClienteDocumento& c) const {
  const QSignalBlocker guarda(dcbLocal);  // being filled, not chosen from
  if (dcbLocal->count() != static_cast<int>(c.locales.size())) {
    dcbLocal->clear();
    for (const auto& l : c.locales) dcbLocal->addItem(l.nombre, l.id);
  }
  dcbLocal->setCurrentIndex(c.nIdLocal > 0 ? dcbLocal->findData(c.nIdLocal) : -1);
  lblLocal->setVisible(c.localVisible);
  dcbLocal->setVisible(c.localVisible);
}

bool ControlesCliente::buscaDesde(const QWidget* campo) const { return campo == txtTarjeta || campo == txtLocal; }

ControlesCliente nuevosControlesCliente(Panel* panel, Enlaces& enlaces, Puesto& p, ClienteDocumento& c,
                                        BuscadorClientes& pantallas, const PedidoCliente& pedido) {
  ControlesCliente r;
  r.txtTarjeta = panel->campo(QStringLiteral("txtTarjeta"), QStringLiteral("Nro. &Tarjeta:"));
  enlaces.texto(r.txtTarjeta, c.txtTarjeta);
  const QString nombres = QStringLiteral("&Nombres:");
  if (pedido.nombresAparte) {
    auto* rotulo = nuevoTexto(nombres);
    r.txtNombres = new Campo(pedido.nombres);
    rotulo->setBuddy(r.txtNombres);
    panel->agregar({}, rotulo);
    panel->agregar({}, r.txtNombres);
  } else {
    r.txtNombres = panel->campo(pedido.nombres, nombres);
  }
  r.txtNombres->setProperty("textoLibre", true);
  enlaces.texto(r.txtNombres, c.txtNombres);
  pedido.antesDelLocal();
  r.txtLocal = panel->campo(QStringLiteral("txtLocal"), pedido.local);
  enlaces.texto(r.txtLocal, c.txtLocal);
  r.lblLocal = nuevoTexto(QStringLiteral("Elija local:"), QStringLiteral("suave"));
  r.lblLocal->setObjectName(QStringLiteral("lblLocal"));
  panel->agregar({}, r.lblLocal);
  r.dcbLocal = new QComboBox;
  r.dcbLocal->setObjectName(QStringLiteral("dcbLocal"));
  panel->agregar({}, r.dcbLocal);

  for (Campo* campo : {r.txtTarjeta, r.txtLocal}) {
    campo->filtro = soloDigitos;
    campo->alSalir = [con = pedido.con, &c] { con([&c] { AjustarCliente(c); }); };
  }
  QObject::connect(r.dcbLocal, &QComboBox::currentIndexChanged, panel, [con = pedido.con, &p, &c, &pantallas](int n) {
    if (n < 0) return;
    con([&] {
      c.txtLocal = QString::number(c.locales[static_cast<size_t>(n)].id);
      (void)BuscaTarjeta(p, c, pantallas);
    });
  });
  return r;
}
