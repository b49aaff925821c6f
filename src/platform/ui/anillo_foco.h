#pragma once
#include <QPointer>
#include <QWidget>

// The focus ring of one window: drawn round whatever of its controls has the keyboard. A control with the property
// "anilloPropio" (and what lies in it) draws its own.
class AnilloFoco final : public QWidget {
  Q_OBJECT
 public:
  // Owned by `ventana`.
  explicit AnilloFoco(QWidget* ventana);

  bool eventFilter(QObject* objeto, QEvent* evento) override;

 protected:
  void paintEvent(QPaintEvent* e) override;

 private:
  void seguir(QWidget* control);
  void colocar();

  QPointer<QWidget> control_;
  std::vector<QPointer<QWidget>> vigilados_;
};
