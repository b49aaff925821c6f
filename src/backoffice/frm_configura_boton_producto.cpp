#include "backoffice/frm_configura_boton_producto.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "backoffice/pantallas_backoffice.h"
#include "foundation/rutinas.h"
#include "platform/text/numero.h"
#include "platform/ui/tecla_articulo.h"
#include "platform/ui/tema.h"

namespace {

constexpr int kColumnas = 6;
constexpr int kTeclasFuncion = 12;

// The key that chooses the button of that number on this screen.
QKeyCombination combinacion(int tecla) {
  const bool conShift = tecla > kTeclasFuncion;
  const auto f = static_cast<Qt::Key>(Qt::Key_F1 + (tecla - 1) % kTeclasFuncion);
  return QKeyCombination(conShift ? Qt::ShiftModifier : Qt::NoModifier, f);
}

}  // namespace

frmConfiguraBotonProducto::frmConfiguraBotonProducto(Puesto& p, PantallasBackoffice& pantallas, QWidget* padre)
    : Forma(QStringLiteral("frmConfiguraBotonProducto"), QStringLiteral("Configurar Botones y Productos"), padre),
      p_(p),
      pantallas_(pantallas) {
  cuerpo()->addWidget(crearTeclas(), 1);
  cuerpo()->addWidget(crearDetalle());
  indicio(QStringLiteral("F1 a F12, Shift+F1 a Shift+F12 elegir la tecla  ·  Enter grabar  ·  Esc salir"));
  for (int n = 1; n <= kTeclasConfigurables; ++n) tecla(combinacion(n), [this, n] { elegir(n); });
  if (CargarTeclas(p_, v_)) mostrar();
  cmdTecla_[1]->setFocus();
  resize(tema::px(980), tema::px(640));
}

QWidget* frmConfiguraBotonProducto::crearTeclas() {
  auto* todo = new QWidget;
  auto* rejilla = new QGridLayout(todo);
  rejilla->setContentsMargins(0, 0, 0, 0);
  rejilla->setSpacing(tema::px(2 * tema::kPaso));
  for (int n = 1; n <= kTeclasConfigurables; ++n) {
    auto* boton = new TeclaArticulo(QStringLiteral("cmdTecla(%1)").arg(n), QStringLiteral("lblTecla(%1)").arg(n),
                                    NombreTeclaRegistro(n));
    connect(boton, &QPushButton::clicked, this, [this, n] { elegir(n); });
    rejilla->addWidget(boton, (n - 1) / kColumnas, (n - 1) % kColumnas);
    rejilla->setColumnStretch((n - 1) % kColumnas, 1);
    cmdTecla_[static_cast<size_t>(n)] = boton;
  }
  return todo;
}

QWidget* frmConfiguraBotonProducto::crearDetalle() {
  auto* panel = new Panel({}, 2);
  Campo* boton = panel->fijo(QStringLiteral("txtBoton"), QStringLiteral("Botón"));
  Campo* tecla = panel->fijo(QStringLiteral("txtTecla"), QStringLiteral("Tecla"));
  txtCodigoProducto_ = panel->campo(QStringLiteral("txtCodigoProducto"), QStringLiteral("&Código"));
  Campo* nombre = panel->fijo(QStringLiteral("txtNombreProducto"), QStringLiteral("Producto"));
  txtCodigoProducto_->filtro = [](QChar t) { return FiltrarTecla(t, {ClaseTecla::Digitos}); };
  txtCodigoProducto_->alSalir = [this] {
    enlaces_.recoger();
    MostrarProductoDeTecla(p_, v_);
    mostrar();
  };
  enlaces_.texto(boton, v_.txtBoton);
  enlaces_.texto(tecla, v_.txtTecla);
  enlaces_.texto(txtCodigoProducto_, v_.txtCodigoProducto);
  enlaces_.texto(nombre, v_.txtNombreProducto);

  // clang-format off
  const struct { const char *nombre, *rotulo, *papel; void (frmConfiguraBotonProducto::*accion)(); } botones[] = {
      {"txtBuscaProductos", "&Buscar producto", "", &frmConfiguraBotonProducto::buscar},
      {"cmdGrabar", "&Grabar", "principal", &frmConfiguraBotonProducto::grabar},
      {"cmdEliminar", "&Quitar Producto", "", &frmConfiguraBotonProducto::eliminar},
      {"cmdSalir", "&Salir", "", &frmConfiguraBotonProducto::reject},
  };
  // clang-format on
  std::vector<QPushButton*> fila;
  for (const auto& b : botones) {
    fila.push_back(nuevoBoton(QLatin1String(b.nombre), QLatin1String(b.rotulo), QLatin1String(b.papel)));
    connect(fila.back(), &QPushButton::clicked, this, b.accion);
  }
  auto* todo = new QWidget;
  auto* columna = new QVBoxLayout(todo);
  columna->setContentsMargins(0, 0, 0, 0);
  columna->addWidget(panel);
  columna->addLayout(filaBotones(fila));
  return todo;
}

void frmConfiguraBotonProducto::elegir(int tecla) {
  if (!ElegirTecla(p_, v_, tecla)) return;
  mostrar();
  txtCodigoProducto_->setFocus();
  txtCodigoProducto_->selectAll();
}

void frmConfiguraBotonProducto::buscar() {
  const auto codigo = pantallas_.buscarArticulo();
  if (!codigo) return;
  v_.txtCodigoProducto = TextoDe(Val(*codigo));
  MostrarProductoDeTecla(p_, v_);
  mostrar();
}

void frmConfiguraBotonProducto::grabar() {
  enlaces_.recoger();
  if (GrabarTecla(p_, v_)) mostrar();
  else if (v_.tecla != 0) marcarMal(txtCodigoProducto_);
}

void frmConfiguraBotonProducto::eliminar() {
  txtCodigoProducto_->clear();
  grabar();
}

bool frmConfiguraBotonProducto::alEntrar(QWidget* campo) {
  if (campo != txtCodigoProducto_) return false;
  grabar();
  return true;
}

void frmConfiguraBotonProducto::mostrar() {
  enlaces_.mostrar();
  for (size_t n = 1; n < cmdTecla_.size(); ++n) {
    const TeclaMostrada& t = v_.cmdTecla[n];
    cmdTecla_[n]->poner(t.rotulo, t.asignada ? t.rotulo : QString());
  }
}
