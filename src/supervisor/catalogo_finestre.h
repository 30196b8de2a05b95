#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "forms/finestra.h"

namespace lokera {

/// The windows that can be opened: each by its name, with what makes it.
class CatalogoFinestre {
 public:
  /// Makes the window, not yet loaded.
  using Crea = std::function<std::unique_ptr<Finestra>()>;

  /// One name, one window; a second entry of a name is never reached.
  void aggiungi(const QString& nome, Crea crea) { voci_.emplace_back(nome, std::move(crea)); }
  /// Null for a name that is none.
  std::unique_ptr<Finestra> crea(QStringView nome) const {
    for (const auto& [suo_nome, crea] : voci_)
      if (suo_nome == nome) return crea();
    return nullptr;
  }
  /// In the order in which they were added.
  std::vector<QString> nomi() const {
    std::vector<QString> tutti;
    for (const auto& voce : voci_) tutti.push_back(voce.first);
    return tutti;
  }

 private:
  std::vector<std::pair<QString, Crea>> voci_;
};

}  // namespace lokera
