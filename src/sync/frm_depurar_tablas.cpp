#include "sync/frm_depurar_tablas.h"

#include <QCheckBox>
#include <QDateEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "foundation/puesto.h"

frmDepurarTablas::frmDepurarTablas(Puesto& p, std::function<bool()> supervisor, QWidget* padre)
    : Forma(QStringLiteral("frmDepurarTablas"), QStringLiteral("Depuración de Tablas"), padre),
      p_(p),
      supervisor_(std::move(supervisor)) {
  const FrmDepurarTablas v = AbrirDepurarTablas(p);
  auto* panel = new Panel;
  const auto fecha = [&](const char* nombre, const char* etiqueta, QDate dia) {
    auto* f = new QDateEdit(dia);
    f->setObjectName(QLatin1String(nombre));
    f->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    f->setCalendarPopup(true);
    panel->agregar(QString::fromUtf8(etiqueta), f);
    return f;
  };
  desde_ = fecha("dtpFechaInicial", "&Del", v.dtpFechaInicial);
  hasta_ = fecha("dtpFechaFinal", "&Al", v.dtpFechaFinal);
  const auto casilla = [&](const char* nombre, const char* rotulo) {
    auto* c = new QCheckBox(QString::fromUtf8(rotulo));
    c->setObjectName(QLatin1String(nombre));
    panel->agregar({}, c);
    return c;
  };
  teclado_ = casilla("chkTeclado", "Eliminar Tabla relacionada a la configuración del teclado");
  producto_ = casilla("chkProducto", "Reprocesar Artículos");
  cuerpo()->addWidget(panel);
  auto* si = nuevoBoton(QStringLiteral("cmdDepurar"), QStringLiteral("Depurar"), QStringLiteral("principal"));
  auto* no = nuevoBoton(QStringLiteral("cmdCancelar"), QStringLiteral("Salir"));
  connect(si, &QPushButton::clicked, this, &frmDepurarTablas::depurar);
  connect(no, &QPushButton::clicked, this, &QDialog::reject);
  cuerpo()->addLayout(filaBotones({si, no}));
  desde_->setFocus();
}

void frmDepurarTablas::depurar() {
  const FrmDepurarTablas v{desde_->date(), hasta_->date(), teclado_->isChecked(), producto_->isChecked()};
  const FinDepurar fin = DepurarTablas(p_, v, supervisor_);
  if (fin == FinDepurar::Nada) return;
  porSincronizar_ = true;
  accept();
}
