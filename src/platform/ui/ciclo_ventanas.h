#pragma once
#include <QApplication>
#include <functional>

// The event loop of the windows. What an act throws, such as a broken invariant, ends that act alone: the windows live
// on.
class CicloVentanas final : public QApplication {
 public:
  using QApplication::QApplication;

  // Gets the words of what an act has thrown. Without it the exception goes on.
  std::function<void(const QString& que)> alRomper;

  bool notify(QObject* quien, QEvent* evento) override;
};
