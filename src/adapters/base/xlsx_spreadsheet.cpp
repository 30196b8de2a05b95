#include "adapters/base/xlsx_spreadsheet.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <cerrno>
#include <map>
#include <tuple>
#include <utility>
#include <xlsxwriter.h>

#include "adapters/base/file_intero.h"
#include "platform/letterali.h"
#include "platform/momento.h"

namespace lokera {

namespace {

constexpr const char* forma_data = "dd/mm/yyyy";
constexpr const char* forma_data_ora = "dd/mm/yyyy hh:mm:ss";

std::uint8_t codice(Workbook::Allineamento allineamento) {
  switch (allineamento) {
    case Workbook::Allineamento::centro:
      return LXW_ALIGN_CENTER;
    case Workbook::Allineamento::destra:
      return LXW_ALIGN_RIGHT;
    default:
      return LXW_ALIGN_LEFT;
  }
}

class XlsxWorkbook : public Workbook {
 public:
  explicit XlsxWorkbook(const QString& file)
      : file_(file), cartella_(QFile::encodeName(QFileInfo(file).absolutePath())) {
    if (!file_.errore().isEmpty()) return;
    lxw_workbook_options modo{LXW_TRUE, cartella_.data(), LXW_TRUE};
    libro_ = workbook_new_opt(QFile::encodeName(file_.nome()).constData(), &modo);
    foglio_ = libro_ ? workbook_add_worksheet(libro_, nullptr) : nullptr;
  }
  ~XlsxWorkbook() override {
    // The library closes it only when it packs the book.
    if (foglio_ && foglio_->optimize_tmpfile) std::fclose(std::exchange(foglio_->optimize_tmpfile, nullptr));
    if (libro_) lxw_workbook_free(libro_);
  }
  Q_DISABLE_COPY_MOVE(XlsxWorkbook)

  void colonna(int numero, double larghezza, Allineamento allineamento) override;
  bool scrivi(int riga, int colonna, const ValoreFoglio& valore, bool grassetto) override;
  QString salva() override;

 private:
  lxw_format* formato(int colonna, bool grassetto, const char* forma);
  lxw_error metti(lxw_row_t riga, lxw_col_t colonna, const ValoreFoglio& valore, bool grassetto);
  QString manca_spazio() const;

  FileIntero file_;
  QByteArray cartella_;  // the library keeps looking at it
  lxw_workbook* libro_ = nullptr;
  lxw_worksheet* foglio_ = nullptr;  // null when there was no room or no right for it
  QByteArray testo_;                 // of the cell that is written, with the end that the library looks for
  std::map<int, std::uint8_t> allineate_;
  std::map<std::tuple<std::uint8_t, bool, const char*>, lxw_format*> formati_;
  int scritta_ = 0;
};

// A cell's format takes the place of its column's, so each has both in one.
lxw_format* XlsxWorkbook::formato(int colonna, bool grassetto, const char* forma) {
  const auto allineata = allineate_.find(colonna);
  const std::uint8_t come = allineata == allineate_.end() ? std::uint8_t{LXW_ALIGN_NONE} : allineata->second;
  lxw_format*& formato = formati_[{come, grassetto, forma}];
  if (formato) return formato;
  formato = workbook_add_format(libro_);
  format_set_align(formato, come);
  if (grassetto) format_set_bold(formato);
  if (forma) format_set_num_format(formato, forma);
  return formato;
}

void XlsxWorkbook::colonna(int numero, double larghezza, Allineamento allineamento) {
  if (!foglio_ || !ammesso_nel_foglio(1, numero, 0, QString())) return;
  allineate_[numero] = codice(allineamento);
  const auto questa = static_cast<lxw_col_t>(numero - 1);
  worksheet_set_column(foglio_, questa, questa, larghezza, formato(numero, false, nullptr));
}

// A cell without a look of its own has its column's.
lxw_error XlsxWorkbook::metti(lxw_row_t riga, lxw_col_t colonna, const ValoreFoglio& valore, bool grassetto) {
  const auto in = [&](const char* forma) {
    return grassetto || forma ? formato(colonna + 1, grassetto, forma) : nullptr;
  };
  if (const auto* testo = std::get_if<QString>(&valore)) {
    testo_ = testo->toUtf8();
    return worksheet_write_string(foglio_, riga, colonna, testo_.constData(), in(nullptr));
  }
  if (const auto* utf8 = std::get_if<QByteArrayView>(&valore)) {
    testo_.resize(0);
    testo_ += *utf8;
    return worksheet_write_string(foglio_, riga, colonna, testo_.constData(), in(nullptr));
  }
  if (const auto* numero = std::get_if<double>(&valore))
    return worksheet_write_number(foglio_, riga, colonna, *numero, in(nullptr));
  const auto* giorno = std::get_if<QDate>(&valore);
  const QDateTime quando = giorno ? momento(*giorno) : std::get<QDateTime>(valore);
  return worksheet_write_unixtime(foglio_, riga, colonna, quando.toSecsSinceEpoch(),
                                  in(giorno ? forma_data : forma_data_ora));
}

bool XlsxWorkbook::scrivi(int riga, int colonna, const ValoreFoglio& valore, bool grassetto) {
  if (!foglio_ || !ammesso_nel_foglio(riga, colonna, scritta_, valore)) return false;
  scritta_ = riga;
  const auto r = static_cast<lxw_row_t>(riga - 1);
  return metti(r, static_cast<lxw_col_t>(colonna - 1), valore, grassetto) == LXW_NO_ERROR;
}

// The library doesn't look whether its temporary file took the rows, and copies that file before it packs it.
QString XlsxWorkbook::manca_spazio() const {
  FILE* righe = foglio_->optimize_tmpfile;
  if (std::fflush(righe) != 0) return qt_error_string(errno);
  if (std::ferror(righe)) return qt_error_string(ENOSPC);
  const qint64 serve = qint64{ftello(righe)} * 3 / 2;
  return QStorageInfo(QFile::decodeName(cartella_)).bytesAvailable() < serve ? qt_error_string(ENOSPC)
                                                                             : QString();
}

QString XlsxWorkbook::salva() {
  if (!file_.errore().isEmpty()) return file_.errore();
  if (!foglio_) return qt_error_string(EIO);
  if (QString manca = manca_spazio(); !manca.isEmpty()) return manca;
  foglio_ = nullptr;
  const lxw_error esito = workbook_close(std::exchange(libro_, nullptr));
  if (esito != LXW_NO_ERROR) return QString::fromUtf8(lxw_strerror(esito));
  return file_.completa();
}

}  // namespace

std::unique_ptr<Workbook> XlsxSpreadsheet::nuovo(const QString& file) {
  return std::make_unique<XlsxWorkbook>(file);
}

}  // namespace lokera
