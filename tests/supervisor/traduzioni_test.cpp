// Every Italian text that the program shows has its translation in the delivered table.
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

bool ha_parole(const QString& testo) {
  static const QRegularExpression parola(u"\\p{L}{2}"_s);
  return testo.contains(parola);
}

/// The Italian texts with a translation, or those without.
QStringList testi(Banco& b, bool tradotti) {
  const QString sql = u"select italiano from traduzioni where trim(coalesce(inglese, '')) %1 ''"_s.arg(
      tradotti ? u"<>"_s : u"="_s);
  QStringList tutti = b.righe(sql);
  if (tradotti) return tutti.join(u'\n').toCaseFolded().split(u'\n');
  tutti.removeIf([](const QString& t) { return !ha_parole(t); });
  return tutti;
}

/// Captions that are Italian still, since the translation of a whole window leaves them alone.
QStringList lasciati_in_italiano(const Finestra& f, const QStringList& tradotti, Traduttore& traduttore) {
  QStringList testi = {f.Caption()};
  for (Controllo* c : f.Controls()) {
    if (const auto* didascalia = c->didascalia()) testi += (*didascalia)();
    if (auto* k = dynamic_cast<CheckBox*>(c)) testi += k->Caption();
    if (auto* k = dynamic_cast<OptionButton*>(c)) testi += k->Caption();
  }
  testi.removeIf([&](const QString& t) {
    return !tradotti.contains(t.trimmed().toCaseFolded()) ||
           traduttore.traduci(t).compare(t, Qt::CaseInsensitive) == 0;
  });
  return testi;
}

TEST(Traduzioni, NoWindowShowsATextThatTheTableLacks) {
  Banco b;
  b.lokera(1);
  b.sql(u"update parametri set lingua = 1, descrizione = '001'"_s);
  const QStringList tradotti = testi(b, true);
  b.main().Form_Load();
  ASSERT_EQ(b.db().lingua_interfaccia, 1);
  for (const QString& nome : b.console->catalogo().nomi())
    ASSERT_TRUE(b.console->finestre().apri(nome)) << nome.toStdString();
  EXPECT_EQ(testi(b, false).join(u"\n").toStdString(), "");
  for (const Finestra* f : b.console->elenco().tutte())
    EXPECT_EQ(lasciati_in_italiano(*f, tradotti, b.console->traduttore()).join(u'\n').toStdString(), "")
        << f->nome().toStdString();
}

/// The literals of each statement that translates or shows one.
QStringList testi_di(const QString& sorgente) {
  static const QRegularExpression frase(
      u"\\b(?:traduci|avvisa|conferma|non_valida)(\\((?:[^()]|(?1))*\\))"_s);
  static const QRegularExpression testo(u"u\"((?:[^\"\\\\]|\\\\.)*)\""_s);
  QStringList tutti;
  for (auto f = frase.globalMatch(sorgente); f.hasNext();)
    for (auto t = testo.globalMatch(f.next().captured(1)); t.hasNext();) tutti += t.next().captured(1);
  return tutti;
}

TEST(Traduzioni, NoMessageHasATextThatTheTableLacks) {
  Banco b;
  const QStringList tradotti = testi(b, true);
  int visti = 0;
  QDirIterator sorgenti(QString::fromUtf8(LOKERA_SRC), {u"*.cpp"_s, u"*.h"_s}, QDir::Files,
                        QDirIterator::Subdirectories);
  while (sorgenti.hasNext()) {
    QFile file(sorgenti.next());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    for (const QString& testo : testi_di(QString::fromUtf8(file.readAll()))) {
      if (!ha_parole(testo)) continue;
      ++visti;
      EXPECT_TRUE(tradotti.contains(testo.trimmed().toCaseFolded()))
          << file.fileName().toStdString() << ": " << testo.toStdString();
    }
  }
  EXPECT_GT(visti, 20);
}

}  // namespace
}  // namespace lokera::prova
