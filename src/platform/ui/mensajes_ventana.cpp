#include "platform/ui/mensajes_ventana.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "platform/ui/anillo_foco.h"
#include "platform/ui/forma.h"
#include "platform/ui/tema.h"

namespace {

// The window in front, which gets the keyboard back when the box has gone.
class Detras {
 public:
  Detras() : ventana_(QApplication::activeModalWidget()) {
    if (!ventana_) ventana_ = QApplication::activeWindow();
    // An answer that was pressed before the question could be seen is none.
    if (QApplication::overrideCursor()) DescartarPulsaciones();
    // A box asks: whatever was going on, the cursor must not say "wait".
    while (QApplication::overrideCursor()) {
      cursores_.push_back(*QApplication::overrideCursor());
      QApplication::restoreOverrideCursor();
    }
  }
  ~Detras() {
    for (auto c = cursores_.rbegin(); c != cursores_.rend(); ++c) QApplication::setOverrideCursor(*c);
    if (ventana_ && ventana_->isVisible()) ventana_->activateWindow();
  }
  Detras(const Detras&) = delete;
  Detras& operator=(const Detras&) = delete;
  QWidget* ventana() const { return ventana_; }

 private:
  QPointer<QWidget> ventana_;
  std::vector<QCursor> cursores_;
};

QMessageBox::Icon dibujoDe(Icono icono) {
  switch (icono) {
    case Icono::Pregunta: return QMessageBox::Question;
    case Icono::Aviso: return QMessageBox::Warning;
    case Icono::Critico: return QMessageBox::Critical;
    case Icono::Informacion: break;
  }
  return QMessageBox::Information;
}

QPushButton* conBoton(QMessageBox& caja, const QString& rotulo, const char* nombre, QMessageBox::ButtonRole papel) {
  QPushButton* b = caja.addButton(rotulo, papel);
  b->setObjectName(QString::fromUtf8(nombre));
  return b;
}

void preparar(QMessageBox& caja, const QString& texto, const QString& titulo) {
  caja.setObjectName(QStringLiteral("caja"));
  caja.setWindowTitle(titulo);
  caja.setTextFormat(Qt::PlainText);
  caja.setText(QString(texto).replace(QStringLiteral("S/. "), QStringLiteral("S/.\u00A0")));  // stays with its amount
  new AnilloFoco(&caja);
}

// An input box is a small screen of its own, so that Enter, Esc and focus are those of all others.
class CajaPedir final : public Forma {
 public:
  CajaPedir(const QString& texto, const QString& titulo, const QString& porDefecto, QWidget* padre)
      : Forma(QStringLiteral("caja"), titulo, padre) {
    auto* sentencia = nuevoTexto(texto, QStringLiteral("sentencia"));
    sentencia->setTextFormat(Qt::PlainText);
    sentencia->setWordWrap(true);
    campo_ = new Campo(QStringLiteral("txtRespuesta"));
    campo_->setText(porDefecto);
    campo_->setMinimumWidth(tema::px(360));
    auto* si = nuevoBoton(QStringLiteral("cmdAceptar"), QStringLiteral("&Aceptar"), QStringLiteral("principal"));
    auto* no = nuevoBoton(QStringLiteral("cmdCancelar"), QStringLiteral("&Cancelar"));
    connect(si, &QPushButton::clicked, this, &QDialog::accept);
    connect(no, &QPushButton::clicked, this, &QDialog::reject);
    cuerpo()->addWidget(sentencia);
    cuerpo()->addWidget(campo_);
    cuerpo()->addLayout(filaBotones({si, no}));
    campo_->setFocus();
  }
  QString texto() const { return campo_->text(); }

 protected:
  bool alEntrar(QWidget*) override {
    accept();
    return true;
  }

 private:
  Campo* campo_;
};

}  // namespace

void MensajesVentana::mostrar(const QString& texto, const QString& titulo, Icono icono) {
  Detras detras;
  QMessageBox caja(detras.ventana());
  preparar(caja, texto, titulo);
  caja.setIcon(dibujoDe(icono));
  QPushButton* aceptar = conBoton(caja, QStringLiteral("Aceptar"), "Aceptar", QMessageBox::AcceptRole);
  aceptar->setProperty("papel", "principal");
  caja.setDefaultButton(aceptar);
  caja.setEscapeButton(aceptar);
  caja.exec();
}

bool MensajesVentana::preguntar(const QString& texto, const QString& titulo, bool siPorDefecto) {
  Detras detras;
  QMessageBox caja(detras.ventana());
  preparar(caja, texto, titulo);
  caja.setIcon(QMessageBox::Question);
  QPushButton* si = conBoton(caja, QStringLiteral("&Sí"), "Sí", QMessageBox::YesRole);
  QPushButton* no = conBoton(caja, QStringLiteral("&No"), "No", QMessageBox::NoRole);
  QPushButton* principal = siPorDefecto ? si : no;
  principal->setProperty("papel", "principal");
  caja.setDefaultButton(principal);
  caja.setEscapeButton(no);
  caja.exec();
  return caja.clickedButton() == si;
}

std::optional<QString> MensajesVentana::pedir(const QString& texto, const QString& titulo, const QString& porDefecto) {
  Detras detras;
  CajaPedir caja(texto, titulo, porDefecto, detras.ventana());
  if (caja.exec() != QDialog::Accepted) return {};
  return caja.texto();
}
