#include "supervisor/gestore_finestre.h"

namespace lokera {

GestoreFinestre::GestoreFinestre(const ElencoFinestre& elenco, const CatalogoFinestre& catalogo,
                                 TimerFactory& timer)
    : elenco_(elenco), catalogo_(catalogo), pulizia_(timer.crea_timer()) {
  pulizia_->Interval(1);
  pulizia_->Evento = [this] { togli_chiuse(); };
}

GestoreFinestre::~GestoreFinestre() {
  while (!finestre_.empty()) finestre_.pop_back();
}

Finestra* GestoreFinestre::apri(const QString& nome) {
  if (Finestra* aperta = elenco_.trova(nome); aperta && !aperta->chiusa()) {
    if (in_primo_piano) in_primo_piano(*aperta);
    return aperta;
  }
  return apri(catalogo_.crea(nome));
}

Finestra* GestoreFinestre::apri(std::unique_ptr<Finestra> nuova) {
  if (!nuova) return nullptr;
  Finestra* finestra = nuova.get();
  finestre_.push_back(std::move(nuova));
  finestra->Chiusa = [this] { pulizia_->Enabled(true); };
  if (collega) collega(*finestra);
  const Finestra::Attesa caricamento(*finestra);
  finestra->Form_Load();
  return finestra;
}

void GestoreFinestre::togli_chiuse() {
  pulizia_->Enabled(false);
  std::erase_if(finestre_, [](const auto& f) { return f->chiusa(); });
}

}  // namespace lokera
