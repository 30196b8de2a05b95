#pragma once

#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

#include "forms/colonna.h"
#include "forms/controlli.h"
#include "forms/righe.h"
#include "forms/stile_riga.h"

namespace lokera {

/// What a check box column holds in a row that is checked and in one that is not.
constexpr QStringView testo_spuntato = u"-1";
constexpr QStringView testo_non_spuntato = u"0";

/// Who draws a list. Called at once on each change; must not change the state.
class VistaGriglia {
 public:
  virtual ~VistaGriglia() = default;
  virtual void colonne_cambiate() = 0;
  virtual void righe_cambiate() = 0;  ///< any number of rows, all of them perhaps
  virtual void riga_cambiata(int riga) = 0;
  /// At the end, during a filling. A long filling calls it every 100 rows, so it should cost little.
  virtual void righe_aggiunte(int prima, int quante) = 0;
  virtual void riga_corrente(int riga) = 0;
  virtual void
  modifica_da_confermare() = 0;  ///< the cell in edit, if any, must be handed over now (utente_modifica)
};

/// A place in a list, counted from 0.
struct Cella {
  int riga = 0;
  int colonna = 0;
  bool operator==(const Cella&) const = default;
};

/// By which column the person has put the rows in order; none is -1.
struct OrdineRighe {
  int colonna = -1;
  bool decrescente = false;
};

/// A list: columns, rows of text, a current row. Rows and columns are counted from 0; no current row is -1.
class SSOleDBGrid : public Controllo {
 public:
  using Controllo::Controllo;
  void accetta(VisitaControlli& visita) override;
  Proprieta<QString>* didascalia() override { return &Caption; }
  void traduci_titoli(const Traduzione& traduci) override;

  Proprieta<QString> Caption{*this, {}};
  Proprieta<int> Width{*this, 0};             ///< the grid's own units; set from the drawing before Form_Load
  Proprieta<bool> AllowAddNew{*this, false};  ///< the user may add rows at the end
  Proprieta<bool> AllowDelete{*this, false};
  Proprieta<bool> AllowUpdate{*this, false};  ///< cells can be edited in place

  /// The user may put the rows in another order to look at them. Not for a list whose order is what is saved.
  Proprieta<bool> OrdinabileDaTestata{*this, false};

  Proprieta<Colore> BackColorEven{*this, bianco};  ///< of every other row, from the first
  Proprieta<Colore> BackColorOdd{*this, bianco};
  Proprieta<QString> ActiveRowStyleSet{*this, {}};  ///< style of the current row, over its own

  int Cols() const { return static_cast<int>(colonne_.size()); }
  const Colonna& Columns(int i) const { return colonne_[static_cast<size_t>(i)]; }
  int colonna(QStringView campo) const;               ///< by the field's name; -1 when there is none
  int colonna_con_titolo(QStringView caption) const;  ///< by the caption
  void imposta_colonne(std::vector<Colonna> colonne);
  void imposta_colonna(int i, const Colonna& colonna);

  int Rows() const { return righe_.conta(); }
  void RemoveAll();
  void AddItem(const QStringList& celle);     ///< at the end; missing cells are empty
  void AddItem(QByteArrayView riga_con_tab);  ///< the same, cells UTF-8 and separated by tabs; faster
  void RemoveItem(int riga);

  QString cella(int riga, int colonna) const;
  QString cella(int riga, QStringView campo) const;
  /// The cells of a row as they lie in memory, parted by tabs; until the next change.
  QByteArrayView riga_utf8(int riga) const { return righe_.riga(riga); }
  QByteArrayView cella_utf8(int riga, int colonna) const { return righe_.cella(riga, colonna); }
  void imposta_cella(int riga, int colonna, const QString& testo);
  void imposta_cella(int riga, QStringView campo, const QString& testo);

  /// The row as it shows: what RowLoaded makes of it, with the style of the current row. Nothing of it is
  /// kept, so a list pays for the rows that are drawn, or read for a print, and for no others.
  AspettoRiga aspetto(int riga) const;
  /// The text that the cell shows then.
  QString mostrata(const AspettoRiga& aspetto, int riga, int colonna) const;

  int Row() const { return riga_; }
  void Row(int riga);  ///< moves the current row; out of range is ignored. Calls RowColChange when it moves
  int Col() const { return col_; }
  void Col(int col);

  bool spuntata(int riga, int colonna) const;  ///< of a check box column
  void Update();              ///< commits the pending edit of the view and the row that was edited
  void ReDraw(int righe_da);  ///< tells the view of the rows added since row `righe_da`

  /// What the user does; the view calls these. The handlers below run inside the call and may change the
  /// rows, so nothing read before it holds after it.
  bool modificabile(int riga, int colonna) const;  ///< whether a cell can be edited in place
  /// A cell was edited. A text longer than the column takes is cut. False when the cell can't be edited.
  bool utente_modifica(int riga, int colonna, const QString& testo);
  bool utente_inverte_spunta(int riga, int colonna);
  /// An entry of the column's list was chosen for the current row's cell.
  bool utente_sceglie_voce(int riga, int colonna, int voce);
  void utente_sceglie(int riga, int colonna);  ///< moves the current cell: out of a row only after its Update
  void utente_clicca(int riga, int colonna);   ///< the same by the mouse, followed by Click
  /// An empty row at the end becomes the current one. It goes away again when it is left without an edit.
  /// Returns its number; -1 when no row can be added.
  int utente_aggiunge_riga();
  bool utente_elimina(int riga);  ///< asks BeforeDelete; whether the row is gone
  /// Return or Tab, Shift+Tab: to the next or previous cell that can be reached; past the last cell of the
  /// last row to a new row. False when there is nowhere to go, so that a Tab may leave the list.
  bool utente_avanti();
  bool utente_indietro();
  /// The rows themselves move, as text without regard to case, as numbers in a column that holds them, as
  /// dates; by the same column once more, the other way round. The current row stays the same record under
  /// another number, none is selected. Rows added later come last.
  void utente_ordina(int colonna);
  void utente_seleziona(std::vector<int> righe);
  void utente_allarga(int colonna, int larghezza);  ///< the column's border was dragged; grid's units

  /// The cell after or before a given one; hidden columns are passed over and, where the list is edited in
  /// place, locked ones too. None past the ends.
  std::optional<Cella> cella_dopo(Cella da) const;
  std::optional<Cella> cella_prima(Cella da) const;

  const OrdineRighe& ordine() const { return ordine_; }
  const std::vector<int>& selezionate() const {
    return selezionate_;
  }  ///< rows marked by the user, ascending; the current row isn't one for being current
  quint64 svuotamenti() const { return svuotamenti_; }  ///< how often the rows were all removed

  /// While false the view isn't told of added rows (see ReDraw).
  void Redraw(bool acceso) { ridisegna_ = acceso; }

  qsizetype byte_occupati() const { return righe_.byte_occupati(); }
  void vista(VistaGriglia* vista) { vista_ = vista; }

  /// Called for each row that is about to be drawn, in the middle of drawing: reads the row, fills the look,
  /// changes nothing else.
  std::function<void(int riga, AspettoRiga& aspetto)> RowLoaded;
  std::function<void()> Click;
  std::function<void()> RowColChange;
  std::function<void(int riga, int colonna)> Change;  ///< the user changed a cell
  std::function<void(int riga)> AfterUpdate;          ///< a row that the user edited was left or committed
  std::function<bool(int riga)> BeforeDelete;         ///< false keeps the row
  std::function<void(int riga)> AfterDelete;

 private:
  bool valida(int riga, int colonna) const;
  bool raggiungibile(int colonna) const;
  void togli(int riga);
  void riga_aggiunta();
  void scarta_riga_nuova();
  /// The cell in edit is handed over once for each gesture, before anything is read that it could change;
  /// what follows doesn't ask for it again.
  void conferma();
  void sposta(int riga, int col);
  void muovi(int riga, int col);
  int lascia_riga(int verso);
  void chiudi_riga();
  int aggiungi_riga();
  void disponi(const std::vector<int>& ordine);
  bool vai(std::optional<Cella> dove);

  std::vector<Colonna> colonne_;
  Righe righe_;
  std::vector<int> selezionate_;
  OrdineRighe ordine_;
  int riga_ = -1;
  int col_ = 0;
  int modificata_ = -1;  ///< row with edits that AfterUpdate hasn't been told of
  int nuova_ = -1;       ///< row added by the user and not edited yet
  quint64 svuotamenti_ = 0;
  bool ridisegna_ = true;
  VistaGriglia* vista_ = nullptr;
};

/// A list of choices of a column's cells: its first column is the value that goes into the cell.
class SSOleDBDropDown : public Controllo {
 public:
  using Controllo::Controllo;
  void accetta(VisitaControlli& visita) override;
  QString disegno() const override { return {}; }  // inside the cells
  void RemoveAll() { voci_.clear(); }
  void AddItem(const QStringList& voce) { voci_.push_back(voce); }
  const std::vector<QStringList>& voci() const { return voci_; }
  std::function<void(int voce)> CloseUp;  ///< the user chose this entry, counted from 0

 private:
  std::vector<QStringList> voci_;
};

}  // namespace lokera
