#pragma once

#include <QObject>
#include <QString>

#include <deque>
#include <optional>

namespace lokera {

/// A person who answers the dialogs of the real machine as they open, one gesture each.
class Persona : public QObject {
 public:
  Persona() { aspetta(); }

  struct Gesto {
    enum { risponde, scrive, sceglie } tipo;
    bool acconsente = false;
    std::optional<QString> testo;
  };
  void poi(const Gesto& gesto) { gesti_.push_back(gesto); }

 private:
  void aspetta();
  void agisci();

  std::deque<Gesto> gesti_;
};

}  // namespace lokera
