#include "bench/figlio.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "bench/misura.h"

namespace lokera::bench {

Figlio::Figlio(const std::function<void(const std::function<void()>&)>& vita) {
  std::array<int, 2> canale{};
  if (::pipe(canale.data()) != 0) rinuncia("pipe");
  pid_ = ::fork();
  if (pid_ < 0) rinuncia("fork");
  if (pid_ == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    vita([&] { (void)!::write(canale[1], "!", 1); });
    ::_exit(0);
  }
  ::close(canale[1]);
  char c = 0;
  const bool pronto = ::read(canale[0], &c, 1) == 1;
  ::close(canale[0]);
  if (!pronto) rinuncia("l'altro processo non parte");
}

Figlio::~Figlio() {
  ::kill(pid_, SIGKILL);
  ::waitpid(pid_, nullptr, 0);
}

}  // namespace lokera::bench
