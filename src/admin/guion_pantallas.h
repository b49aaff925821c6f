#pragma once
// The screens as the player sees them: which one is active, where a control is, what it shows, whether it can be used.
#include <QObject>
#include <QPointer>
#include <QStringList>

class QAbstractItemView;
class QAction;
class QModelIndex;
class QWidget;

// A control found by its name: a widget, or a menu entry or toolbar button that is only an action.
struct ControlGuion {
  QString nombre;
  QPointer<QWidget> widget;
  QPointer<QAction> accion;

  bool visible() const;
  bool activo() const;
  // Whether a person could change what it shows.
  bool editable() const;
  // Throws ErrorGuion when it is hidden or disabled.
  void exigirUsable() const;
  // What it shows, one line each row for a grid or list (cells separated by tabs) and one line for all else, with
  // line breaks as "\n". Boxes to tick are "si" or "no".
  QStringList texto() const;
  // The widget as a grid or list; throws ErrorGuion when it is none.
  QAbstractItemView* lista() const;
};

class PantallasGuion final : public QObject {
 public:
  PantallasGuion();

  // The innermost modal screen, else the top-level form that was shown or activated last; none before the start.
  QWidget* activa() const;
  QString nombreActiva() const;
  // Gives the active screen the keyboard where no window or another one has it.
  void activar() const;
  // Whether a button of a visible form is held down at present, as one is for a moment when a key presses it.
  bool botonHundido() const;
  // Whether keys that may be a scanner's are being held back.
  bool teclaRetenida() const;
  // Closes menus and lists that hang open.
  static void cerrarDesplegables();

  // The control of that name in the active screen or, while no modal screen is up, in another visible form; a name
  // that differs only in case will do where none fits exactly. Throws ErrorGuion when there is none.
  ControlGuion buscar(const QString& nombre) const;
  // Name of the control that has the keyboard: the nearest widget with a name of its own; "" for none.
  QString foco() const;
  // What key presses reach.
  QWidget* destinoDeTeclas() const;

  bool eventFilter(QObject* objeto, QEvent* evento) override;

 private:
  QList<QPointer<QWidget>> formas_;  // in the order in which they came to the front
};

// The rows of a list from the first one on, branches of a tree from the top down whether open or not.
QList<QModelIndex> filasDe(const QAbstractItemView& lista);
// The cells of a row as shown.
QStringList celdasDe(const QModelIndex& fila);
