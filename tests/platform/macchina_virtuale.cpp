#include "platform/comuni/macchina_di_prova.h"
#include "simulation/macchina/virtual_machine.h"

namespace lokera {

namespace {

using namespace simulazione;

QString come_numero(const ValoreFoglio& valore) {
  const QDate zero(1899, 12, 30);
  if (const auto* testo = std::get_if<QString>(&valore)) return *testo;
  if (const auto* giorno = std::get_if<QDate>(&valore)) return QString::number(zero.daysTo(*giorno));
  if (const auto* quando = std::get_if<QDateTime>(&valore))
    return QString::number(static_cast<double>(zero.daysTo(quando->date())) +
                               quando->time().msecsSinceStartOfDay() / 86'400'000.0,
                           'g', 15);
  return QString::number(std::get<double>(valore), 'g', 15);
}

class MacchinaVirtuale : public MacchinaDiProva {
 public:
  MacchinaVirtuale() { pc_.seriali.collega(1); }
  Machine macchina() override { return vm_.macchina(); }

  void risponde(bool acconsente) override { pc_.messaggi.risposte.append(acconsente); }
  void scrive(const std::optional<QString>& testo) override { pc_.domande.risposte.append(testo); }
  void sceglie(const std::optional<QString>& file) override { pc_.file.risposte.append(file); }
  void sostituisce(bool si) override { pc_.file.sostituisce.append(si); }

  void manda(const QByteArray& dati) override { pc_.seriali.arriva(1, dati); }
  void stacca() override { pc_.seriali.scollega(1); }

  bool clessidra() const override { return pc_.puntatore.attese > 0; }
  int pagine(const QString& file) const override {
    for (const auto& stampato : pc_.stampante.stampati)
      if (stampato.file == file) return static_cast<int>(stampato.pagine.size());
    return 0;
  }
  QString cella(const QString& file, int riga, int colonna) const override {
    const auto& celle = pc_.fogli.salvati.at(file).celle;
    const auto questa = celle.find({riga, colonna});
    return questa == celle.end() ? QString() : come_numero(questa->second.valore);
  }

 private:
  VirtualMachine vm_;
  VirtualComputer& pc_ = vm_.primo();
};

}  // namespace

std::unique_ptr<MacchinaDiProva> crea_macchina_di_prova() {
  return std::make_unique<MacchinaVirtuale>();
}

}  // namespace lokera
