#pragma once

#include "aiuti/banco.h"
#include "commissioning/frm_param_lokere.h"

namespace lokera::prova {

/// A console with the parameter window, and cabinets that answer as the test says.
class BancoParametri : public ::testing::Test {
 protected:
  using Risposte = QList<QByteArray>;

  /// Opens the window, the main window before it.
  frm_param_lokere& apri() {
    if (!finestra_) {
      b.main().Form_Load();
      b.vm.esegui_per(1s);
      finestra_ = static_cast<frm_param_lokere*>(b.console->finestre().apri(u"frm_param_lokere"_s));
    }
    return *finestra_;
  }
  /// Whether the window has not been closed and taken away.
  bool aperta() const { return b.console->elenco().trova(u"frm_param_lokere"_s) != nullptr; }

  /// All datagrams for port 3040 are answered like this.
  void a_datagrammi(const std::function<Risposte(const QByteArray& frame)>& risposta,
                    const QString& da = u"127.0.0.99"_s) {
    ASSERT_TRUE(
        b.vm.rete().ascolta_udp(da, 3040, [this, risposta](QByteArrayView dati, const auto& rispondi) {
          datagrammi << dati.toByteArray();
          for (const QByteArray& r : risposta(dati.toByteArray())) rispondi(r);
        }));
  }
  /// What a cabinet at that address answers to the search.
  static QByteArray scoperta(const QByteArray& cifre_ip) {
    return componi_frame("000A0" + QByteArray(14, '0') + cifre_ip + "10001" + "255255255000" +
                         "192168015001");
  }
  void fra(Monotonic quando, std::function<void()> cosa) { b.vm.ciclo().fra(quando, std::move(cosa)); }
  void scegli(int riga) {
    finestra_->lista.grdLok.Row(riga);
    finestra_->grdLok_RowColChange();
  }
  /// A row of the list, cells joined by "|".
  QString riga(int n) const {
    QStringList celle;
    for (int i = 0; i < finestra_->lista.grdLok.Cols(); ++i) celle += finestra_->lista.grdLok.cella(n, i);
    return celle.join(u'|');
  }
  QStringList righe() const {
    QStringList tutte;
    for (int n = 0; n < finestra_->lista.grdLok.Rows(); ++n) tutte += riga(n);
    return tutte;
  }
  QStringList messaggi() {
    QStringList testi = b.vm.messaggi().testi();
    b.vm.messaggi().mostrati.clear();
    return testi;
  }
  QList<QByteArray> codici_datagrammi() {
    QList<QByteArray> codici;
    for (const QByteArray& d : std::exchange(datagrammi, {})) codici << d.left(5);
    return codici;
  }

  Banco b;
  QList<QByteArray> datagrammi;  ///< received on port 3040

 private:
  frm_param_lokere* finestra_ = nullptr;
};

}  // namespace lokera::prova
