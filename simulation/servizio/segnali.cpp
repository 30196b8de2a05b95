#include "simulation/servizio/segnali.h"

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace lokera::simulazione {

namespace {

sigset_t attesi() {
  sigset_t insieme;
  sigemptyset(&insieme);
  sigaddset(&insieme, SIGINT);
  sigaddset(&insieme, SIGTERM);
  return insieme;
}

}  // namespace

Segnali::Segnali(std::function<void()> fine) {
  const sigset_t insieme = attesi();
  sigprocmask(SIG_BLOCK, &insieme, nullptr);
  lettura_ = signalfd(-1, &insieme, SFD_CLOEXEC | SFD_NONBLOCK);
  if (lettura_ < 0) {
    sigprocmask(SIG_UNBLOCK, &insieme, nullptr);
    return;
  }
  avviso_ = std::make_unique<QSocketNotifier>(lettura_, QSocketNotifier::Read);
  QObject::connect(avviso_.get(), &QSocketNotifier::activated, avviso_.get(), [this, fine = std::move(fine)] {
    signalfd_siginfo quale;
    while (read(lettura_, &quale, sizeof quale) > 0) {
    }
    fine();
  });
}

Segnali::~Segnali() {
  avviso_.reset();
  if (lettura_ >= 0) close(lettura_);
}

}  // namespace lokera::simulazione
