#include "platform/io/reloj_sistema.h"

#include <QThread>
#include <QTimer>

namespace {

// A timer with its work. QTimer alone would go on ticking in an inner event loop that the work itself opened.
class Latido : public QObject {
 public:
  Latido(int ms, std::function<void()> f) : f_(std::move(f)) {
    connect(&timer_, &QTimer::timeout, this, [this] { latir(); });
    timer_.start(ms);
  }
  // The timer's work may let go of the timer's last handle.
  static void soltar(Latido* l) {
    l->timer_.stop();
    if (l->corre_) {
      l->deleteLater();
    } else {
      delete l;
    }
  }

 private:
  void latir() {
    if (corre_) return;
    corre_ = true;
    f_();
    corre_ = false;
  }

  QTimer timer_;
  std::function<void()> f_;
  bool corre_ = false;
};

}  // namespace

QDateTime RelojSistema::now() const { return QDateTime::currentDateTime(); }

void RelojSistema::dormir(int ms) {
  if (ms > 0) QThread::msleep(static_cast<unsigned long>(ms));
}

std::shared_ptr<void> RelojSistema::cada(int ms, std::function<void()> f) {
  return std::shared_ptr<Latido>(new Latido(ms, std::move(f)), &Latido::soltar);
}

void RelojSistema::unaVez(int ms, const QObject* contexto, std::function<void()> f) const {
  QTimer::singleShot(ms, contexto, std::move(f));
}
