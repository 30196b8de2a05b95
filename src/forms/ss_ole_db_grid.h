#pragma once

#include <QStringList>

#include <functional>
#include <vector>

#include "forms/controlli.h"
#include "forms/righe.h"

namespace lokera {

enum class Allineamento { sinistra, centro, destra };
enum class StileCella { testo, spunta };

class SSOleDBDropDown;

/// One column of a list. Widths are the grid's own units (1/15 of a pixel).
struct Colonna {
  QString Caption;
  QString campo;  ///< the field it shows and saves; empty for a computed column
  int Width = 1000;
  bool Visible = true;
  Allineamento allineamento = Allineamento::sinistra;
  StileCella stile = StileCella::testo;
  QString formato;     ///< number format; empty for none
  int caratteri = 0;   ///< largest number of characters; 0 for no limit
  bool bloccata = false;
  SSOleDBDropDown* elenco = nullptr;  ///< takes its values from this list; not owned
};

/// Who draws a list. Called at once on each change; must not change the state.
class VistaGriglia {
 public:
  virtual ~VistaGriglia() = default;
  virtual void colonne_cambiate() = 0;
  virtual void righe_cambiate() = 0;                      ///< any number of rows, all of them perhaps
  virtual void riga_cambiata(int riga) = 0;
  virtual void righe_aggiunte(int prima, int quante) = 0;  ///< at the end, during a filling
  virtual void riga_corrente(int riga) = 0;
  virtual void modifica_da_confermare() = 0;  ///< the cell in edit, if any, must be handed over now
};

/// A list: columns, rows of text, a current row. Rows and columns are counted from 0; no current row is -1.
class SSOleDBGrid : public Controllo {
 public:
  using Controllo::Controllo;

  Proprieta<QString> Caption{*this, {}};
  Proprieta<bool> AllowAddNew{*this, false};  ///< the user may add rows at the end
  Proprieta<bool> AllowDelete{*this, false};
  Proprieta<bool> AllowUpdate{*this, false};  ///< cells can be edited in place

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
  void imposta_cella(int riga, int colonna, const QString& testo);
  void imposta_cella(int riga, QStringView campo, const QString& testo);

  int Row() const { return riga_; }
  void Row(int riga);  ///< moves the current row; out of range is ignored. Calls RowColChange when it moves
  int Col() const { return col_; }
  void Col(int col);

  void Update();  ///< commits the pending edit of the view
  void ReDraw(int righe_da);  ///< tells the view of the rows added since row `righe_da`

  /// While false the view isn't told of added rows (see ReDraw).
  void Redraw(bool acceso) { ridisegna_ = acceso; }

  qsizetype byte_occupati() const { return righe_.byte_occupati(); }
  void vista(VistaGriglia* vista) { vista_ = vista; }

  std::function<void()> Click;
  std::function<void()> RowColChange;
  std::function<void(int riga, int colonna)> Change;  ///< the user changed a cell
  std::function<void(int riga)> AfterUpdate;          ///< the user leaves a row that was edited
  std::function<bool(int riga)> BeforeDelete;         ///< false keeps the row
  std::function<void(int riga)> AfterDelete;

 private:
  std::vector<Colonna> colonne_;
  Righe righe_;
  int riga_ = -1;
  int col_ = 0;
  bool ridisegna_ = true;
  VistaGriglia* vista_ = nullptr;
};

/// A list of choices of a column's cells: its first column is the value that goes into the cell.
class SSOleDBDropDown : public Controllo {
 public:
  using Controllo::Controllo;
  void RemoveAll() { voci_.clear(); }
  void AddItem(const QStringList& voce) { voci_.push_back(voce); }
  const std::vector<QStringList>& voci() const { return voci_; }
  std::function<void(int voce)> CloseUp;  ///< the user chose this entry, counted from 0

 private:
  std::vector<QStringList> voci_;
};

}  // namespace lokera
