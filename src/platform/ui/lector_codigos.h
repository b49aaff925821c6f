#pragma once
// Tells a scanner from hands. A scanner in the place of a keyboard types a whole code within a few hundredths of a
// second and ends it with Enter; nobody's hands do.
#include <QKeyEvent>
#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <vector>

class QWidget;

// A burst: four or more letters, digits, points or dashes behind a pause, each at most kEntreTeclas_ms behind the one
// before it, ended as fast by Enter. Times are those of the key events, so a busy desk that reads them late loses none.
// The pause in front is what sets a scanner apart from keys sent without any delay: those follow the key before them.
//
// While a burst is possible its keys are held back from the window; what turns out to be typed is typed then, in its
// order and before anything that follows. A key whose event carries no time passes at once.
class LectorCodigos final : public QObject {
  Q_OBJECT
 public:
  static constexpr int kEntreTeclas_ms = 35;  // a scanner's interval is 1 to 20; the fastest hands' over five keys 60
  static constexpr int kRetencion_ms = 60;    // how long a key waits for the next one to arrive
  static constexpr int kMinimo = 4;           // characters

  // Works while `ventana`, its owner, has the keyboard. What `admite` doesn't take for a code is typed after all;
  // `alLeer` gets the code, between two key events.
  LectorCodigos(QWidget* ventana, std::function<bool(const QString&)> admite,
                std::function<void(const QString&)> alLeer);
  ~LectorCodigos() override;

  // Keys are being held back.
  bool reteniendo() const { return !retenidas_.empty(); }

  bool eventFilter(QObject* objeto, QEvent* evento) override;

 private:
  bool alPulsar(QKeyEvent& e);
  bool alTerminar(const QKeyEvent& e, bool seguida);
  void retener(const QKeyEvent& e);
  void soltar();
  bool soltarCon(const QKeyEvent& e);
  QString codigo() const;

  QWidget* ventana_;
  std::function<bool(const QString&)> admite_;
  std::function<void(const QString&)> alLeer_;
  std::vector<std::unique_ptr<QKeyEvent>> retenidas_;
  quint64 ultima_ = 0;       // time of the last key, in whatever window
  bool limpia_ = false;      // the run of keys under way began behind a pause and holds nothing but a code's characters
  bool trasCodigo_ = false;  // the last key ended a code: a second line end belongs to it
  bool soltando_ = false;
  quint64 turno_ = 0;  // only the wait begun last counts
};
