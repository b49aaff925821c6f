#include "backoffice/frm_parametros.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "foundation/rutinas.h"
#include "platform/ui/tema.h"

frmParametros::frmParametros(Puesto& p, QWidget* padre)
    : Forma(QStringLiteral("frmParametros"), QStringLiteral("Parametros"), padre), p_(p), dcbAlmacen_(new QComboBox) {
  CargarParametros(p_, v_);
  auto* panel = new Panel;
  const auto digitos = [](QChar t) { return FiltrarTecla(t, {ClaseTecla::Digitos}); };
  auto* numeracion = new Campo(QStringLiteral("txtNumeracion"));
  auto* servicio = new Campo(QStringLiteral("txtServicio"));
  numeracion->filtro = servicio->filtro = digitos;
  dcbAlmacen_->setObjectName(QStringLiteral("dcbAlmacen"));
  for (const auto& [codigo, nombre] : v_.almacenes) dcbAlmacen_->addItem(nombre, codigo);
  connect(dcbAlmacen_, &QComboBox::currentIndexChanged, this, [this] { quitarMal(dcbAlmacen_); });
  dcbAlmacen_->setCurrentIndex(dcbAlmacen_->findData(v_.dcbAlmacen));

  // clang-format off
  const struct { const char *nombre, *rotulo; QWidget* campo; bool* marca; } filas[] = {
      {"chkNumeracion", "&Numeración", numeracion, &v_.chkNumeracion},
      {"chkAlmacen", "&Almacén", dcbAlmacen_, &v_.chkAlmacen},
  };
  // clang-format on
  for (const auto& f : filas) {
    auto* marca = new QCheckBox(QString::fromUtf8(f.rotulo));
    marca->setObjectName(QLatin1String(f.nombre));
    f.campo->setEnabled(false);
    connect(marca, &QCheckBox::toggled, f.campo, &QWidget::setEnabled);
    enlaces_.marca(marca, *f.marca);
    panel->agregar({}, marca);
    panel->agregar({}, f.campo);
  }
  panel->agregar(QStringLiteral("% &Servicio"), servicio);
  enlaces_.texto(numeracion, v_.txtNumeracion);
  enlaces_.texto(servicio, v_.txtServicio);
  enlaces_.mostrar();
  cuerpo()->addWidget(panel);

  auto* graba = nuevoBoton(QStringLiteral("cmdGrabar"), QStringLiteral("&Grabar"), QStringLiteral("principal"));
  auto* cierra = nuevoBoton(QStringLiteral("cmdCerrar"), QStringLiteral("&Cerrar"));
  connect(graba, &QPushButton::clicked, this, &frmParametros::grabar);
  connect(cierra, &QPushButton::clicked, this, &frmParametros::reject);
  cuerpo()->addStretch();
  cuerpo()->addLayout(filaBotones({graba, cierra}));
  indicio(QStringLiteral("Espacio marca la casilla  ·  Esc cerrar"));
  setMinimumWidth(tema::px(460));
}

void frmParametros::grabar() {
  enlaces_.recoger();
  v_.dcbAlmacen = dcbAlmacen_->currentData().toString();
  if (GrabarParametros(p_, v_)) {
    accept();
  } else if (auto* campo = v_.campoMal.isEmpty() ? nullptr : findChild<QWidget*>(v_.campoMal)) {
    marcarMal(campo);
  }
}
