#include "terminale.h"

#include <csignal>
#include <cstdio>
#include <termios.h>
#include <unistd.h>

namespace lokera {

namespace {

/// Without the restart of `read` that is usual, so that a break ends it and the terminal gets its echo back.
class Interruzione {
 public:
  Interruzione() {
    struct sigaction azione {};
    azione.sa_handler = [](int) {};
    sigaction(SIGINT, &azione, &prima_);
  }
  ~Interruzione() { sigaction(SIGINT, &prima_, nullptr); }
  Q_DISABLE_COPY_MOVE(Interruzione)

 private:
  struct sigaction prima_ {};
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

std::optional<QString> leggi_riga() {
  QByteArray riga;
  char c = 0;
  ssize_t letti = read(STDIN_FILENO, &c, 1);
  for (; letti == 1 && c != '\n'; letti = read(STDIN_FILENO, &c, 1)) riga += c;
  if (letti < 0 || (letti == 0 && riga.isEmpty())) return std::nullopt;
  if (riga.endsWith('\r')) riga.chop(1);
  return QString::fromUtf8(riga);
}

std::optional<QString> domanda(const QString& testo, bool segreta) {
  const Interruzione interruzione;
  const SenzaEco muto(segreta);  // before the question: who types at once isn't seen either
  (void)std::fputs(qPrintable(testo), stderr);
  (void)std::fflush(stderr);
  return leggi_riga();
}

}  // namespace lokera
