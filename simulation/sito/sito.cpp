#include "simulation/sito/sito.h"

#include "link/protocollo.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {

QString errore(int riga, const char* motivo) {
  return u"line %1: %2"_s.arg(riga).arg(QString::fromUtf8(motivo));
}

const char* leggi_chiave(const QList<QByteArray>& campi, Sito& sito) {
  bool numero = false;
  const int posizione = campi.value(2).toInt(&numero);
  if (campi.size() != 4) return "a key has cabinet, position and code";
  if (!numero || posizione < 0) return "the position is a number from 0";
  if (campi[3].size() != 10) return "a code has ten characters";
  sito.chiavi.push_back({QString::fromLatin1(campi[1]), posizione, campi[3]});
  return nullptr;
}

const char* leggi_tessera(const QList<QByteArray>& campi, Sito& sito) {
  if (campi.value(1).size() != 10) return "a code has ten characters";
  sito.tessere.push_back(campi[1]);
  return nullptr;
}

}  // namespace

std::vector<std::pair<int, QList<QByteArray>>> righe_di(QByteArrayView testo) {
  std::vector<std::pair<int, QList<QByteArray>>> righe;
  int numero = 0;
  for (QByteArray riga : testo.toByteArray().split('\n')) {
    ++numero;
    if (riga.endsWith('\r')) riga.chop(1);
    if (riga.trimmed().isEmpty() || riga.startsWith('#')) continue;
    righe.emplace_back(numero, riga.split('\t'));
  }
  return righe;
}

QString leggi_sito(QByteArrayView testo, Sito& sito) {
  for (const auto& [numero, campi] : righe_di(testo)) {
    const char* motivo = "neither \"chiave\" nor \"tessera\"";
    if (campi[0] == "chiave") motivo = leggi_chiave(campi, sito);
    if (campi[0] == "tessera") motivo = leggi_tessera(campi, sito);
    if (motivo) return errore(numero, motivo);
  }
  return {};
}

bool nomina_cabinet(const QString& nome, const QString& indirizzo, int ordine) {
  if (nome == QString::number(ordine) || nome == indirizzo) return true;
  return nome.size() == 15 && normalizza_ip(nome) == indirizzo;
}

void Sito::appendi(Cabinet& cabinet, int ordine, bool registra) const {
  for (const Chiave& chiave : chiavi) {
    if (!nomina_cabinet(chiave.cabinet, cabinet.nome(), ordine)) continue;
    cabinet.appendi(chiave.posizione, chiave.codice, registra);
  }
}

}  // namespace lokera::simulazione
