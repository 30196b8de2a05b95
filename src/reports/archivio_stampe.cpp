#include "reports/archivio_stampe.h"

#include "store/recordset.h"

namespace lokera {

namespace {

Errore apri(Recordset& rs, Connection& c, const ContestoStampa& contesto, Cursore cursore) {
  QString sql = u"select * from password_stampe where codice = ? and ditta_in_uso = ? and programma = ?"_s;
  QVariantList valori{contesto.codice, contesto.ditta_in_uso, contesto.nome_stampa};
  if (!contesto.documento.trimmed().isEmpty()) {
    sql += u" and documento = ?"_s;
    valori += contesto.documento;
  }
  return rs.Open(sql, c, valori, cursore);
}

void prendi(QString& dove, const Recordset& rs, QStringView colonna) {
  if (const QString testo = rs.testo(colonna).trimmed(); !testo.isEmpty()) dove = testo;
}

void prendi(double& dove, const Recordset& rs, QStringView colonna) {
  if (const QVariant valore = rs.valore(colonna); valore.isValid()) dove = valore.toDouble();
}

QString testo_o_blank(const QString& testo) {
  return testo.isEmpty() ? u" "_s : testo;
}

QString qualita(const QString& tenuta) {
  return tenuta == u"0"_s ? u"-0"_s : tenuta;
}

}  // namespace

Esito<ImpostazioniStampa> ArchivioStampe::leggi(const ContestoStampa& contesto) {
  Recordset rs;
  if (const Errore e = apri(rs, c_, contesto, Cursore::sola_lettura); e.fallito()) return e;
  ImpostazioniStampa i;
  if (rs.eof()) return i;
  prendi(i.stampante, rs, u"stampante");
  prendi(i.orientamento, rs, u"orientamento");
  i.formato = static_cast<int>(rs.numero(u"formato"));
  prendi(i.larghezza, rs, u"larghezza");
  prendi(i.lunghezza, rs, u"lunghezza");
  prendi(i.margineSx, rs, u"margineSx");
  prendi(i.Font, rs, u"Font");
  prendi(i.dimensione, rs, u"dimensione");
  prendi(i.qualita, rs, u"qualita");
  i.qualita = qualita(i.qualita);
  i.interpollice = rs.numero(u"interpollice") != 0;
  prendi(i.alimentatore, rs, u"alimentatore");
  return i;
}

Errore ArchivioStampe::registra(const ContestoStampa& contesto, const ImpostazioniStampa& i) {
  const std::pair<QStringView, QVariant> valori[] = {
      {u"codice", contesto.codice},
      {u"ditta_in_uso", contesto.ditta_in_uso},
      {u"programma", contesto.nome_stampa},
      {u"documento", contesto.documento},
      {u"stampante", testo_o_blank(i.stampante)},
      {u"orientamento", i.orientamento},
      {u"formato", i.formato},
      {u"larghezza", i.larghezza},
      {u"lunghezza", i.lunghezza},
      {u"margineSx", i.margineSx},
      {u"Font", testo_o_blank(i.Font)},
      {u"dimensione", i.dimensione},
      {u"qualita", i.qualita},
      {u"interpollice", i.interpollice ? 1 : 0},
      {u"alimentatore", testo_o_blank(i.alimentatore)},
  };
  return in_transazione(c_, [&]() -> Errore {
    Recordset rs;
    if (Errore e = apri(rs, c_, contesto, Cursore::aggiornabile); e.fallito()) return e;
    if (rs.eof()) {
      if (Errore e = rs.AddNew(); e.fallito()) return e;
    }
    for (const auto& [colonna, valore] : valori)
      if (Errore e = rs.imposta(colonna, valore); e.fallito()) return e;
    return rs.Update();
  });
}

Esito<std::optional<double>> ArchivioStampe::margine_sinistro(const ContestoStampa& contesto) {
  Recordset rs;
  if (const Errore e = apri(rs, c_, contesto, Cursore::sola_lettura); e.fallito()) return e;
  const int colonna = rs.indice(u"marginesinistro");
  if (rs.eof() || (colonna >= 0 && rs.valore(colonna).toDouble() <= 0)) return std::optional<double>();
  return std::optional(rs.valore(u"margineSx").toDouble());
}

Esito<ScelteReport> ArchivioStampe::scelte(const QString& nome_stampa) {
  Recordset rs;
  if (const Errore e =
          rs.Open(u"select * from default_stampagriglia where programma = ?"_s, c_, {nome_stampa});
      e.fallito())
    return e;
  if (rs.eof()) return ScelteReport();
  const auto vero = [&](QStringView colonna) { return rs.valore(colonna).toBool(); };
  return ScelteReport{vero(u"dati_anagrafici"), vero(u"modalita_carattere") && !vero(u"modalita_grafica"),
                      vero(u"salva_layout"), vero(u"export_Excel"), vero(u"stampa_data")};
}

Esito<QStringList> ArchivioStampe::ditta(Traduttore& traduttore) {
  Recordset rs;
  if (const Errore e = rs.Open(u"select * from tabelle_Ditta"_s, c_); e.fallito()) return e;
  if (rs.eof()) return QStringList();
  const auto testo = [&](QStringView colonna) { return rs.testo(colonna).simplified(); };
  const auto con_nome = [&](const QString& nome, QStringView colonna) {
    const QString valore = testo(colonna);
    return valore.isEmpty() ? QString() : nome + valore;
  };
  QStringList luogo{testo(u"Cap"), testo(u"citta"), testo(u"provincia")};
  luogo.removeAll(QString());
  QStringList righe{testo(u"Nome"), testo(u"indirizzo"),
                    con_nome(traduttore.traduci(u"Partita iva: "_s), u"partitaiva"), luogo.join(u' '),
                    con_nome(traduttore.traduci(u"Codice fiscale: "_s), u"codicefiscale")};
  righe.removeAll(QString());
  return righe;
}

}  // namespace lokera
