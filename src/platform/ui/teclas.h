#pragma once
// The keys that belong to a whole screen.
#include <QKeyCombination>
#include <QObject>
#include <QString>
#include <functional>
#include <vector>

class QKeyEvent;
class QWidget;

struct EntradaTecla {
  QKeyCombination tecla;  // Qt::Key_Return stands for both Enter keys
  std::function<void()> accion;
  QString indicio;                  // what the hint strip says behind the key; "" leaves it out
  bool tambienEscribiendo = false;  // a key that types or moves the cursor is taken from a field being typed in too
};

// One table per window. Whatever control of the window has the keyboard, a key of the table runs its action instead
// of what it would do there, mnemonics included. A key that is held down acts once. Esc stays with an open cell
// editor.
class TablaTeclas final : public QObject {
  Q_OBJECT
 public:
  // Owned by `ventana`.
  explicit TablaTeclas(QWidget* ventana);

  void agregar(EntradaTecla entrada);
  // "F2 cliente", "F5 artículo", in the order of the table.
  QStringList indicios() const;

  bool eventFilter(QObject* objeto, QEvent* evento) override;

 private:
  const EntradaTecla* buscar(const QKeyEvent& e, const QWidget& foco) const;

  QWidget* ventana_;
  std::vector<EntradaTecla> entradas_;
};

// The name of a key as it stands on a Spanish keyboard: "Supr", "Espacio", "Ctrl+Enter".
QString nombreTecla(QKeyCombination tecla);
