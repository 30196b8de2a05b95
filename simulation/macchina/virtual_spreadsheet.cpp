#include "simulation/macchina/virtual_spreadsheet.h"

namespace lokera::simulazione {

namespace {

class VirtualWorkbook : public Workbook {
 public:
  VirtualWorkbook(VirtualSpreadsheet& fogli, QString file) : fogli_(fogli), file_(std::move(file)) {}

  void colonna(int numero, double larghezza, Allineamento allineamento) override {
    libro_.colonne[numero] = {larghezza, allineamento};
  }

  bool scrivi(int riga, int colonna, const ValoreFoglio& valore, bool grassetto) override {
    if (!ammesso_nel_foglio(riga, colonna, scritta_, valore)) return false;
    scritta_ = riga;
    const auto* utf8 = std::get_if<QByteArrayView>(&valore);
    libro_.celle[{riga, colonna}] = {utf8 ? ValoreFoglio(QString::fromUtf8(*utf8)) : valore, grassetto};
    return true;
  }

  QString salva() override {
    if (fogli_.guasto.isEmpty()) fogli_.salvati[file_] = std::move(libro_);
    return fogli_.guasto;
  }

 private:
  VirtualSpreadsheet& fogli_;
  const QString file_;
  VirtualSpreadsheet::Libro libro_;
  int scritta_ = 0;
};

}  // namespace

std::unique_ptr<Workbook> VirtualSpreadsheet::nuovo(const QString& file) {
  return std::make_unique<VirtualWorkbook>(*this, file);
}

}  // namespace lokera::simulazione
