#pragma once

#include "forms/ambiente.h"
#include "forms/zan_form.h"

namespace lokera {

/// The editor of the translation table. A row is stored when it is left.
class frm_traduzioni : public Finestra {
 public:
  explicit frm_traduzioni(const Ambiente& ambiente);

  void Form_Load() override;
  bool Form_Unload() override;  ///< the row in edit is stored first
  void grd_AfterUpdate(int riga);
  bool grd_BeforeDelete(int riga);  ///< false keeps the row

  SSOleDBGrid grd;

 private:
  void allarga(QStringView campo);
  QString registra(const QString& italiano, const QString& tedesco);

  Ambiente a_;
  griglia griglia_;
  ZanForm maschera_;
};

}  // namespace lokera
