#include "terminale.h"

#include <csignal>
#include <cstdio>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace lokera {

namespace {

/// A break ends the wait for a key, so that the terminal gets its echo back. It is let in only during that
/// wait, or one that came a moment before would be lost.
class Interruzione {
 public:
  Interruzione() {
    struct sigaction azione {};
    azione.sa_handler = [](int) {};
    sigaction(SIGINT, &azione, &prima_);
    sigset_t sola;
    sigemptyset(&sola);
    sigaddset(&sola, SIGINT);
    sigprocmask(SIG_BLOCK, &sola, &maschera_);
  }
  ~Interruzione() {
    sigprocmask(SIG_SETMASK, &maschera_, nullptr);
    sigaction(SIGINT, &prima_, nullptr);
  }
  Q_DISABLE_COPY_MOVE(Interruzione)

  /// False on a break.
  bool attendi_tasto() const {
    pollfd ingresso{STDIN_FILENO, POLLIN, 0};
    return ppoll(&ingresso, 1, nullptr, &maschera_) == 1;
  }

 private:
  struct sigaction prima_ {};
  sigset_t maschera_{};
};

class SenzaEco {
 public:
  explicit SenzaEco(bool attivo) : attivo_(attivo && tcgetattr(STDIN_FILENO, &prima_) == 0) {
    if (!attivo_) return;
    termios muto = prima_;
    muto.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &muto);
  }
  ~SenzaEco() {
    if (!attivo_) return;
    tcsetattr(STDIN_FILENO, TCSADRAIN, &prima_);
    (void)std::fputc('\n', stderr);  // the one that was typed didn't show
  }
  Q_DISABLE_COPY_MOVE(SenzaEco)

 private:
  termios prima_{};
  bool attivo_;
};

}  // namespace

bool a_terminale() {
  return isatty(STDIN_FILENO) == 1 && isatty(STDERR_FILENO) == 1;
}

namespace {

template <class Attesa>
std::optional<QString> leggi_riga(const Attesa& attendi) {
  QByteArray riga;
  char c = 0;
  ssize_t letti = 0;
  while (attendi() && (letti = read(STDIN_FILENO, &c, 1)) == 1 && c != '\n') riga += c;
  if (letti < 0 || (letti != 1 && riga.isEmpty()) || (letti == 1 && c != '\n')) return std::nullopt;
  if (riga.endsWith('\r')) riga.chop(1);
  return QString::fromUtf8(riga);
}

}  // namespace

std::optional<QString> leggi_riga() {
  return leggi_riga([] { return true; });
}

std::optional<QString> domanda(const QString& testo, bool segreta) {
  const Interruzione interruzione;
  const SenzaEco muto(segreta);  // before the question: who types at once isn't seen either
  (void)std::fputs(qPrintable(testo), stderr);
  (void)std::fflush(stderr);
  return leggi_riga([&] { return interruzione.attendi_tasto(); });
}

}  // namespace lokera
