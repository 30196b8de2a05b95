#pragma once

#include <QCoreApplication>

#include <functional>
#include <sys/types.h>

namespace lokera::bench {

/// The application object of such a process.
struct Applicazione {
  int argc = 1;
  char nome[6] = "bench";
  char* argv[2] = {nome, nullptr};
  QCoreApplication app{argc, argv};
};

/// The other side of a connection in a process of its own, as cabinet and console are. It must be made before
/// the application object, and ends with the object.
class Figlio {
 public:
  /// Runs `vita` in the new process; the constructor returns once that has called `pronto`.
  explicit Figlio(const std::function<void(const std::function<void()>& pronto)>& vita);
  ~Figlio();
  Figlio(const Figlio&) = delete;
  Figlio& operator=(const Figlio&) = delete;

 private:
  pid_t pid_;
};

}  // namespace lokera::bench
