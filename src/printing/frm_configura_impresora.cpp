#include "printing/frm_configura_impresora.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/text/texto.h"

namespace {

struct Rotulos {
  const char *pregunta, *marca;
};
// clang-format off
constexpr Rotulos kRotulos[] = {
    {"Seleccione la impresora que usará por default:", "ChkFlagcortaPapel"},
    {"Seleccione la impresora alternativa", "ChkFlagcortaPapelAlterna"},
};
// clang-format on

}  // namespace

frmConfiguraImpresora::frmConfiguraImpresora(Puesto& p, QWidget* padre)
    : Forma(QStringLiteral("frmConfiguraImpresora"), QStringLiteral("Configurar Impresora"), padre), p_(p) {
  CargarImpresoras(p_, v_);
  for (int cual : {0, 1}) crearImpresora(cual);
  auto* acepta = nuevoBoton(QStringLiteral("cmdAceptar"), QStringLiteral("&Aceptar"), QStringLiteral("principal"));
  auto* sale = nuevoBoton(QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
  connect(acepta, &QPushButton::clicked, this, &frmConfiguraImpresora::aceptar);
  connect(sale, &QPushButton::clicked, this, &frmConfiguraImpresora::reject);
  cuerpo()->addStretch();
  cuerpo()->addLayout(filaBotones({acepta, sale}));
  indicio(QStringLiteral("Espacio marca la casilla  ·  Esc salir"));
  setMinimumWidth(520);
}

void frmConfiguraImpresora::crearImpresora(int cual) {
  const auto n = static_cast<size_t>(cual);
  // The name can be typed too: a network path, or one that the system doesn't list any more.
  auto* lista = new QComboBox;
  lista->setObjectName(QStringLiteral("cboImpresora(%1)").arg(cual));
  lista->setEditable(true);
  lista->setInsertPolicy(QComboBox::NoInsert);
  lista->setCompleter(nullptr);
  lista->addItems(v_.impresoras);
  lista->setCurrentText(v_.cboImpresora[n]);
  auto* corta = new QCheckBox(QStringLiteral("Impresora Corta Papel"));
  corta->setObjectName(QLatin1String(kRotulos[n].marca));
  corta->setChecked(v_.flagCortaPapel[n]);
  cboImpresora_[n] = lista;
  corta_[n] = corta;
  auto* panel = new Panel(QString::fromUtf8(kRotulos[n].pregunta));
  panel->agregar({}, lista);
  panel->agregar({}, corta);
  cuerpo()->addWidget(panel);
  connect(lista, &QComboBox::currentTextChanged, this, [this, cual] { elegida(cual); });
  connect(corta, &QCheckBox::toggled, this, [this, n](bool si) { v_.flagCortaPapel[n] = si; });
  elegida(cual);
}

void frmConfiguraImpresora::elegida(int cual) {
  const auto n = static_cast<size_t>(cual);
  ElegirImpresora(v_, cual, cboImpresora_[n]->currentText());
  corta_[n]->setChecked(v_.flagCortaPapel[n]);
  corta_[n]->setEnabled(!Recortar(v_.cboImpresora[n]).isEmpty());
}

void frmConfiguraImpresora::aceptar() {
  if (GrabarImpresoras(p_, v_)) accept();
}
