#pragma once
// The base of all screens.
#include <QDialog>
#include <QKeySequence>
#include <functional>

#include "platform/ui/campo.h"
#include "platform/ui/teclas.h"

class Indicios;
class QVBoxLayout;

// A screen: its object name is the screen's name. Enter on a field leaves it for the next one in tab order, Enter on
// a button presses it, Esc closes. Comes to the front when it is shown; the window below gets the keyboard back when
// it closes.
class Forma : public QDialog {
  Q_OBJECT
 public:
  Forma(const QString& nombre, const QString& titulo, QWidget* padre = nullptr);

  // Closes like Esc and the window's own button do, if puedeCerrar().
  void reject() override;
  void done(int resultado) override;

 protected:
  // The place for the screen's content, above the hint strip.
  QVBoxLayout* cuerpo() { return cuerpo_; }
  // Opens over all the screen that there is: a register. Other screens open in their own size, or in what there is
  // where that is less.
  void maximizar();
  // A widget over the whole width below the content (the status line).
  void ponerPie(QWidget* pie);

  // A key of the whole screen; see EntradaTecla. `indicio` stands in the hint strip.
  void tecla(QKeyCombination combinacion, std::function<void()> accion, const QString& indicio = {},
             bool tambienEscribiendo = false);
  // A note in the hint strip for a key that a control handles itself, or for a mnemonic; several are parted by the sign
  // of Indicios.
  void indicio(const QString& texto);

  // What tells that a comma was typed for a point. From now on no amount of the screen is left with one: the words come
  // and its field keeps the keyboard. Called behind the last field.
  void vigilarComas(std::function<void()> avisar);
  // Whether no amount holds one; else the first that does is refused so. A screen asks before it reads its amounts.
  bool importesSinComa();
  // Runs `accion` at the next key that is pressed in this window, before the key does anything. Once.
  void enSiguienteTecla(std::function<void()> accion);

  // Enter on `campo` (anything but a button). True: dealt with; false: on to the next field.
  virtual bool alEntrar(QWidget* campo);
  virtual bool puedeCerrar() { return true; }

  void keyPressEvent(QKeyEvent* e) override;
  void showEvent(QShowEvent* e) override;

 private:
  void escribirIndicios();
  void caberEnPantalla();
  void rechazarComa(Campo* campo);

  TablaTeclas* teclas_;
  QVBoxLayout *todo_, *cuerpo_;
  QFrame* tira_;
  Indicios* indicios_;
  QStringList notas_;
  std::function<void()> avisarComa_;
};

// The wait cursor for as long as it lives.
class CursorEspera {
 public:
  CursorEspera();
  ~CursorEspera();
  CursorEspera(const CursorEspera&) = delete;
  CursorEspera& operator=(const CursorEspera&) = delete;
};
