#pragma once

#include <QLockFile>
#include <QString>

namespace lokera {

/// The mark beside the database that this computer runs the console on it already. Other computers may work
/// on the same file, so the mark carries the computer's name. A console that crashed leaves no lasting mark.
class IstanzaUnica {
 public:
  /// `database`: path of the database file. Tries to take the mark and holds it as long as the object lives.
  explicit IstanzaUnica(const QString& database);

  bool presa() const { return presa_; }
  /// Who holds it when it couldn't be taken: program and process number; empty when that can't be told (the
  /// folder may be read-only).
  QString chi() const;

 private:
  QLockFile mark_;
  bool presa_;
};

}  // namespace lokera
