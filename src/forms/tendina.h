#pragma once

#include <QStringList>

#include <vector>

#include "forms/controlli.h"

namespace lokera {

/// A text with a drop-down list of entries. An entry has columns: one is the text that is shown once the
/// entry is chosen, one the value that it stands for. Entries and columns are counted from 0.
class Tendina : public Controllo {
 public:
  using Controllo::Controllo;
  void accetta(VisitaControlli& visita) override;
  void mostra_valore(const QVariant& valore, const QString& opzione) override;

  Proprieta<QString> Text{*this, {}};

  void RemoveAll();
  const std::vector<QStringList>& voci() const { return voci_; }
  /// -1 when the text is none of the entries'. Of several with the same text the one that was chosen.
  int voce_corrente() const;

  /// Of the current entry; without one what the text says.
  QString Value() const;
  /// Shows the entry of that value; a value that no entry has is its own text.
  void Value(const QString& valore);

  void utente_sceglie_voce(int voce);  ///< from the view

  /// What an entry's line in the drop-down list says.
  virtual QString riga(int voce) const = 0;
  /// Whether the user may type a text that is none of the entries', whatever the drawing says.
  virtual bool scrivibile() const { return false; }

 protected:
  void aggiungi(const QStringList& voce);
  virtual int colonna_testo() const = 0;
  virtual int colonna_valore() const = 0;
  virtual void scelta(int voce) = 0;  ///< the user chose an entry

 private:
  void mostra(int voce);
  QString cella(int voce, int colonna) const { return voci_[static_cast<size_t>(voce)].value(colonna); }

  std::vector<QStringList> voci_;
  int scelta_ = -1;  ///< the entry that was shown last
};

/// Words, each of which may stand for a value of its own.
class ComboBox : public Tendina {
 public:
  using Tendina::Tendina;
  void AddItem(const QString& testo) { aggiungi({testo, testo}); }
  void AddItem(const QString& testo, const QString& valore) { aggiungi({testo, valore}); }
  QString riga(int voce) const override { return voci()[static_cast<size_t>(voce)].value(0); }

  std::function<void()> Click;  ///< the user chose an entry

 protected:
  int colonna_testo() const override { return 0; }
  int colonna_valore() const override { return 1; }
  void scelta(int) override {
    if (const auto click = Click) click();
  }
};

}  // namespace lokera
