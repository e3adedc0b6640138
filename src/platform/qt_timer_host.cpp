#include "platform/qt_timer_host.h"

#include <QCoreApplication>
#include <QEventLoop>

namespace zel {

QtTimerHost::QtTimerHost(control::TimerBank& bank, std::function<void(int)> fire, QObject* parent)
    : QObject(parent), bank_(bank), fire_(std::move(fire)) {
  for (int id = 0; id < bank_.size(); ++id) {
    auto* timer = new QTimer(this);
    // The 10 ms receive tick must stay close to its interval.
    timer->setTimerType(bank_.interval(id) < 100 ? Qt::PreciseTimer : Qt::CoarseTimer);
    connect(timer, &QTimer::timeout, this, [this, id] {
      bank_.markFired(id);
      fire_(id);
    });
    timers_.push_back(timer);
    generations_.push_back(0);
  }
  bank_.setListener([this](int id) { syncOne(id); });
  sync();
}

QtTimerHost::~QtTimerHost() {
  bank_.setListener({});
}

void QtTimerHost::sync() {
  for (int id = 0; id < bank_.size(); ++id) syncOne(id);
}

void QtTimerHost::syncOne(int id) {
  if (id < 0 || id >= static_cast<int>(timers_.size())) return;
  QTimer* t = timers_[id];
  if (!bank_.enabled(id)) {
    t->stop();
    return;
  }
  if (!t->isActive() || generations_[id] != bank_.generation(id)) {
    generations_[id] = bank_.generation(id);
    t->start(bank_.interval(id));
  }
}

void QtEventPump::runFor(int ms) {
  QEventLoop loop;
  QTimer::singleShot(ms, &loop, &QEventLoop::quit);
  loop.exec();
}

void QtEventPump::runPending() {
  QCoreApplication::processEvents();
}

}  // namespace zel
