#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

namespace lokera::prova {

/// What can be written to a file, from here on, as on a full disk.
class SpazioFinito {
 public:
  explicit SpazioFinito(rlim_t byte) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &prima_);
    const rlimit poco{byte, prima_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &poco);
  }
  ~SpazioFinito() { setrlimit(RLIMIT_FSIZE, &prima_); }
  Q_DISABLE_COPY_MOVE(SpazioFinito)

 private:
  rlimit prima_{};
};

}  // namespace lokera::prova
