#pragma once

#include "forms/griglia.h"
#include "forms/zan_form.h"

namespace lokera {

/// The editor of the translation table. A row is stored when it is left.
class frm_traduzioni : public Finestra {
 public:
  frm_traduzioni(ElencoFinestre& elenco, Database& db, ServiziGriglia& servizi, const Clock& orologio);

  void Form_Load() override;
  bool Form_Unload() override;  ///< the row in edit is stored first
  void grd_AfterUpdate(int riga);
  bool grd_BeforeDelete(int riga);  ///< false keeps the row

  SSOleDBGrid grd;

 private:
  void allarga(QStringView campo);
  QString registra(const QString& italiano, const QString& tedesco);

  Connection& archivio_;
  ServiziGriglia& servizi_;
  griglia griglia_;
  ZanForm maschera_;
};

}  // namespace lokera
