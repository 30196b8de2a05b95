#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace lokera::simulazione {

/// SIGINT and SIGTERM as events of the loop. One at a time in a program.
class Segnali {
 public:
  explicit Segnali(std::function<void()> fine);
  ~Segnali();
  Q_DISABLE_COPY_MOVE(Segnali)

 private:
  int lettura_ = -1;
  std::unique_ptr<QSocketNotifier> avviso_;
};

}  // namespace lokera::simulazione
