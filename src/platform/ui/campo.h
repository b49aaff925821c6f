#pragma once
// Fields, labelled panels of fields, and the way between a screen's texts and its controls.
#include <QFrame>
#include <QLineEdit>
#include <functional>
#include <vector>

class QCheckBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;

// A one-line field. Its whole text is selected when it gets the keyboard. A figure too wide for it, one that stands to
// the right, is shown in smaller letters.
class Campo final : public QLineEdit {
  Q_OBJECT
 public:
  explicit Campo(const QString& nombre, QWidget* padre = nullptr);

  // What may be typed: gives the character to type, QChar(0) for none, QChar(8) to take the last one back.
  std::function<QChar(QChar)> filtro;
  // Runs when the field is left by whatever way, but not when only the window loses the keyboard to a box, nor with an
  // amount whose comma stands for a point.
  std::function<void()> alSalir;
  bool importe = false;  // holds an amount

  // An amount whose comma stands for a point: it must not be left so.
  bool conComaDecimal() const;

 Q_SIGNALS:
  // Such an amount was about to be left.
  void comaDecimal();

 protected:
  bool focusNextPrevChild(bool siguiente) override;
  void keyPressEvent(QKeyEvent* e) override;
  void focusInEvent(QFocusEvent* e) override;
  void focusOutEvent(QFocusEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;

 private:
  void ajustarLetra();
};

// A field for amounts: to the right.
Campo* nuevoImporte(const QString& nombre, QWidget* padre = nullptr);
// A locked field: readable, skipped by Tab.
Campo* nuevoFijo(const QString& nombre, QWidget* padre = nullptr);
// `papel` as told in tema.h, "" for a plain button. Enter presses it when it has the keyboard.
QPushButton* nuevoBoton(const QString& nombre, const QString& rotulo, const QString& papel = {},
                        QWidget* padre = nullptr);
QLabel* nuevoTexto(const QString& texto, const QString& papel = {}, QWidget* padre = nullptr);
// Buttons in a row, to the right, the main one first.
QHBoxLayout* filaBotones(const std::vector<QPushButton*>& botones);

// The text was refused: the stop colour on its border and the keyboard. Goes when the text changes.
void marcarMal(QWidget* campo);
void quitarMal(QWidget* campo);

// A card with a title and rows "label, field", `pares` of them side by side.
class Panel final : public QFrame {
  Q_OBJECT
 public:
  explicit Panel(const QString& titulo = {}, int pares = 1, QWidget* padre = nullptr);

  // A new field behind its label, whose mnemonic leads to it.
  Campo* campo(const QString& nombre, const QString& etiqueta);
  Campo* importe(const QString& nombre, const QString& etiqueta);
  Campo* fijo(const QString& nombre, const QString& etiqueta);
  // A control behind its label; with an empty label it takes both places.
  void agregar(const QString& etiqueta, QWidget* control);
  // That control takes all the width that the others leave.
  void ensanchar(QWidget* control);
  // The next pair begins a new row.
  void saltar();

 private:
  QGridLayout* rejilla_;
  int pares_, fila_ = 0, par_ = 0;
};

// The one place where a form's controls meet its texts.
class Enlaces {
 public:
  void texto(QLineEdit* control, QString& campo) { lineas_.push_back({control, &campo}); }
  void rotulo(QLabel* control, const QString& campo) { rotulos_.push_back({control, &campo}); }
  void marca(QCheckBox* control, bool& campo) { marcas_.push_back({control, &campo}); }

  // Texts to controls; a control that shows its text already is left alone, cursor and selection with it.
  void mostrar() const;
  // Controls to texts.
  void recoger() const;

 private:
  std::vector<std::pair<QLineEdit*, QString*>> lineas_;
  std::vector<std::pair<QLabel*, const QString*>> rotulos_;
  std::vector<std::pair<QCheckBox*, bool*>> marcas_;
};
