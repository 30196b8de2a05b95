#include "access/frm_fascie_orarie.h"

#include "access/fasce.h"
#include "aiuti/finestre.h"
#include "store/date_jet.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

// The machine's clock stands on Sunday 30/11/2008, 8:00.
class FrmFascieOrarie : public BancoFinestre {
 protected:
  FrmFascieOrarie() {
    sql(u"insert into gruppi values (1, 'Officina'), (2, 'Uffici')"_s);
    sql(u"insert into gruppi_utente values (7, 'Manutentori'), (8, 'Guardie')"_s);
  }
  void salva() { finestra.Command5_Click(); }
  void fascia(int oper, int chiavi, const QString& giorno, QTime dalle, QTime alle,
              const QDateTime& eseguita = {}) {
    sql(u"insert into fascie_orarie (gruppo_oper, gruppo_chiavi, giorno, dalle_ore, alle_ore, "
        u"data_esecuzione)"
        u" values (?, ?, ?, ?, ?, ?)"_s,
        {oper, chiavi, giorno, ora(dalle), ora(alle), eseguita.isValid() ? QVariant(eseguita) : QVariant()});
  }
  QStringList fasce() {
    return righe(
               u"select gruppo_oper, gruppo_chiavi, giorno, dalle_ore, alle_ore, data_esecuzione from"
               u" fascie_orarie order by dalle_ore, giorno"_s)
        .replaceInStrings(u"1899-12-30 "_s, QString());
  }
  QStringList giorni() {
    return righe(u"select GG, MM, AAAA, giorno from giorni_particolari order by MM, GG"_s);
  }
  /// Chooses an entry of the column's list with the keyboard.
  void scegli(SSOleDBGrid& grd, QStringView campo, int voce) {
    grd.Col(grd.colonna(campo));
    EXPECT_TRUE(grd.utente_sceglie_voce(grd.Row(), grd.Col(), voce));
  }

  frm_fascie_orarie finestra{elenco, db, griglie, vm.orologio()};
  SSOleDBGrid& grd = finestra.grd;
  SSOleDBGrid& grdG = finestra.grdG;
};

TEST_F(FrmFascieOrarie, ABandIsMadeFromTheLists) {
  finestra.Form_Load();
  grd.SetFocus();
  grd.utente_aggiunge_riga();
  scegli(grd, u"gruppo_oper", 1);
  scegli(grd, u"gruppo_chiavi", 0);
  scegli(grd, u"giorno", 0);
  grd.Col(grd.colonna(u"dalle_ore"));
  digita(grd, {u"8"_s, u"12.30"_s});
  EXPECT_EQ(grd.cella(0, u"desc_gruppo_oper"), u"Guardie"_s);
  EXPECT_EQ(grd.cella(0, u"desc_gruppo_chiavi"), u"Officina"_s);
  EXPECT_FALSE(grd.modificabile(0, grd.colonna(u"desc_gruppo_oper")));
  EXPECT_EQ(fasce(), QStringList{});
  salva();
  EXPECT_EQ(fasce(), QStringList{u"8|1|Lunedì|08:00:00|12:30:00|-"_s});
  EXPECT_EQ(messaggi.testi(), QStringList{u"Registrazione conclusa!"_s});
  // A typed number brings the group's words, too.
  for (const auto& [numero, parole] : {std::pair(u"2"_s, u"Uffici"_s), {u"9"_s, QString()}}) {
    grd.utente_modifica(0, grd.colonna(u"gruppo_chiavi"), numero);
    EXPECT_EQ(grd.cella(0, u"desc_gruppo_chiavi"), parole);
  }
}

TEST_F(FrmFascieOrarie, ADayGoesIntoTheListTheUserIsIn) {
  fascia(7, 1, u"Lunedì"_s, {8, 0}, {12, 0});
  sql(u"insert into giorni_particolari values (25, 12, 0, 'Domenica')"_s);
  finestra.Form_Load();
  const struct {
    std::function<void()> entra;
    int voce;
    QString fasce, giorni;
  } casi[] = {{[&] { grd.SetFocus(); }, 1, u"Martedì"_s, u"Domenica"_s},
              {[&] { grdG.SetFocus(); }, 2, u"Martedì"_s, u"Mercoledì"_s},
              {[&] { grd.utente_clicca(0, 0); }, 5, u"Sabato"_s, u"Mercoledì"_s},
              {[&] { grdG.utente_clicca(0, 0); }, 6, u"Sabato"_s, u"Domenica"_s}};
  for (const auto& c : casi) {
    c.entra();
    finestra.drpGiorni.CloseUp(c.voce);
    EXPECT_EQ(grd.cella(0, u"giorno"), c.fasce) << c.voce;
    EXPECT_EQ(grdG.cella(0, u"giorno"), c.giorni) << c.voce;
  }
}

TEST_F(FrmFascieOrarie, AFullDateShowsItsWeekday) {
  const std::pair<const char*, QString> casi[] = {{"25 12 2008", u"Giovedì"_s},
                                                  {"29 2 2008", u"Venerdì"_s},
                                                  {"29 2 2009", {}},
                                                  {"25 12 0", {}},
                                                  {"12 25 2008", {}},
                                                  {"x 12 2008", {}},
                                                  {"25 12 ", {}},
                                                  {"6 1 2009", u"Martedì"_s}};
  sql(u"insert into giorni_particolari values (30, 11, 2008, 'Lunedì')"_s);
  finestra.Form_Load();
  EXPECT_EQ(grdG.cella(0, u"giorno_data"), u"Domenica"_s);
  EXPECT_FALSE(grdG.modificabile(0, grdG.colonna(u"giorno_data")));
  for (const auto& [data, giorno] : casi) {
    const QStringList parti = QString::fromLatin1(data).split(u' ');
    for (int i = 0; i < 3; ++i)
      grdG.utente_modifica(0, grdG.colonna(QList{u"GG"_s, u"MM"_s, u"AAAA"_s}[i]), parti[i]);
    EXPECT_EQ(grdG.cella(0, u"giorno_data"), giorno) << data;
  }
}

TEST_F(FrmFascieOrarie, BothTablesAreReplacedOrNone) {
  fascia(7, 1, u"Lunedì"_s, {8, 0}, {12, 0}, momento(QDate(2008, 11, 24), QTime(7, 56)));
  sql(u"insert into giorni_particolari values (25, 12, 0, 'Domenica')"_s);
  const auto [fasce_prima, giorni_prima] = std::pair(fasce(), giorni());
  finestra.Form_Load();
  grd.utente_modifica(0, grd.colonna(u"alle_ore"), u"13"_s);
  digita_riga(grdG, {u"25"_s, u"12"_s, u"0"_s, u"Sabato"_s});
  salva();
  EXPECT_EQ(fasce(), fasce_prima);
  EXPECT_EQ(giorni(), giorni_prima);
  ASSERT_EQ(messaggi.mostrati.size(), 1);
  EXPECT_TRUE(messaggi.testi()[0].contains(u" durante la registrazione."));
  EXPECT_EQ(grdG.Rows(), 2);
  grdG.utente_elimina(1);
  for (const QString& nessuna_ora : {u"25.00"_s, u"otto"_s, QString()}) {
    grd.utente_modifica(0, grd.colonna(u"dalle_ore"), nessuna_ora);
    salva();
    EXPECT_EQ(fasce(), fasce_prima) << nessuna_ora.toStdString();
  }
  EXPECT_EQ(messaggi.mostrati.size(), 4);
  grd.utente_modifica(0, grd.colonna(u"dalle_ore"), u"8"_s);
  salva();
  EXPECT_EQ(fasce(), QStringList{u"7|1|Lunedì|08:00:00|13:00:00|-"_s});
  grd.utente_elimina(0);
  salva();
  EXPECT_EQ(fasce(), QStringList{});
}

TEST_F(FrmFascieOrarie, ASaveKeepsWhatTheCabinetsWereTold) {
  const QDateTime eseguita = momento(QDate(2008, 11, 30), QTime(7, 56));
  fascia(7, 1, u"Domenica"_s, {8, 0}, {12, 0}, eseguita);
  fascia(7, 2, u"domenica"_s, {9, 0}, {12, 0}, eseguita);
  fascia(8, 1, u"Domenica"_s, {10, 0}, {12, 0});
  finestra.Form_Load();
  // The band opened while the window stood open.
  sql(u"update fascie_orarie set data_esecuzione = ? where gruppo_oper = 8"_s, {eseguita.addSecs(60)});
  grd.utente_modifica(1, grd.colonna(u"giorno"), u"Domenica"_s);
  digita_riga(grd, {u"8"_s});
  grd.Col(grd.colonna(u"gruppo_chiavi"));
  digita(grd, {u"2"_s, u"Domenica"_s, u"11"_s, u"12"_s});
  salva();
  EXPECT_EQ(fasce(), (QStringList{u"7|1|Domenica|08:00:00|12:00:00|2008-11-30 07:56:00"_s,
                                  u"7|2|Domenica|09:00:00|12:00:00|2008-11-30 07:56:00"_s,
                                  u"8|1|Domenica|10:00:00|12:00:00|2008-11-30 07:57:00"_s,
                                  u"8|2|Domenica|11:00:00|12:00:00|-"_s}));
}

// A card of operators 7 that may take the keys 1, at the cabinet 5; the band from 7 to 12 ran when it opened.
class SalvataggioEInvio : public FrmFascieOrarie {
 protected:
  SalvataggioEInvio() {
    sql(u"insert into tessere_operatori (codice, intestazione, gruppo) values ('0000000042', 'Rossi', 7)"_s);
    sql(u"insert into gruppi_tessera values ('0000000042', 1)"_s);
    sql(u"insert into tessere_chiavi (codice, lokera, posizione, gruppo) values ('0000000001', 5, 0, 1)"_s);
    fascia(7, 1, u"Domenica"_s, {7, 0}, {12, 0}, momento(QDate(2008, 11, 30), QTime(6, 56)));
    finestra.Form_Load();
  }
  qsizetype in_coda() { return righe(u"select * from aggiorn_tessere_oper"_s).size(); }
  Giorno giorno{db, vm.orologio(), traduttore};
  FasceOrarie scheduler{db, attesa, giorno};
};

TEST_F(SalvataggioEInvio, OnlyBandsThatCallForAPushGetOne) {
  const struct {
    const char* cosa;
    QString campo, testo;
    qsizetype al_salvataggio, poi;
  } casi[] = {{"nothing changed", u""_s, u""_s, 0, 0},
              {"still to come", u"dalle_ore"_s, u"9"_s, 1, 0},
              {"in force, with other hours", u"dalle_ore"_s, u"7.30"_s, 1, 1},
              {"the same once more", u"dalle_ore"_s, u"7.30"_s, 0, 0},
              {"of another day", u"giorno"_s, u"Lunedì"_s, 1, 0},
              {"of another day still", u"alle_ore"_s, u"11"_s, 0, 0},
              {"of today again", u"giorno"_s, u"domenica"_s, 1, 1},
              {"of other cards", u"gruppo_oper"_s, u"8"_s, 1, 0},
              {"of no cards still", u"gruppo_chiavi"_s, u"2"_s, 0, 0}};
  for (const auto& c : casi) {
    grd.utente_modifica(0, grd.colonna(c.campo), c.testo);
    salva();
    EXPECT_EQ(in_coda(), c.al_salvataggio) << c.cosa;
    sql(u"delete from aggiorn_tessere_oper"_s);
    scheduler.applica_fasce_orarie();
    EXPECT_EQ(in_coda(), c.poi) << c.cosa;
    sql(u"delete from aggiorn_tessere_oper"_s);
  }
}

// What a cabinet was told of a band stays there until it is told again.
TEST_F(SalvataggioEInvio, ABandThatIsGoneTodayIsTakenBackFromTheCabinets) {
  sql(u"insert into tessere_chiavi (codice, lokera, posizione, gruppo) values ('0000000002', 6, 0, 1)"_s);
  sql(u"insert into aggiorn_tessere_oper (ID_tessera, ID_lokera, operazione) values ('0000000042', 6, 'D')"_s);
  sql(u"insert into tessere_da_conservare (ID_tessera, ID_lokera, motivo) values ('0000000042', 6, 'x')"_s);
  const QStringList dopo = {u"0000000042|5|I"_s, u"0000000042|6|D"_s};
  const auto accodati = [&] {
    return righe(u"select ID_tessera, ID_lokera, operazione from aggiorn_tessere_oper order by ID_lokera"_s);
  };
  // Today becomes a Monday: with another date nothing happens.
  digita_riga(grdG, {u"1"_s, u"12"_s, u"0"_s, u"Lunedì"_s});
  salva();
  EXPECT_EQ(accodati(), QStringList{dopo[1]});
  digita_riga(grdG, {u"30"_s, u"11"_s, u"0"_s, u"Lunedì"_s});
  sql(u"create trigger pieno before insert on aggiorn_tessere_oper begin select raise(abort, 'pieno'); end"_s);
  const QStringList prima = giorni();
  salva();
  EXPECT_EQ(giorni(), prima) << "without its queue a save is none";
  EXPECT_TRUE(messaggi.testi().last().contains(u"pieno"_s));
  sql(u"drop trigger pieno"_s);
  salva();
  EXPECT_EQ(accodati(), dopo);
  sql(u"delete from aggiorn_tessere_oper where ID_lokera = 5"_s);
  grdG.utente_elimina(grdG.Rows() - 1);
  salva();
  EXPECT_EQ(accodati(), dopo);
  sql(u"delete from aggiorn_tessere_oper where ID_lokera = 5"_s);
  grd.utente_elimina(0);
  salva();
  EXPECT_EQ(accodati(), dopo);
}

}  // namespace
}  // namespace lokera::prova
