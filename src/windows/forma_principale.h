#pragma once

#include <QMainWindow>

#include <memory>

namespace Ui {
class frm_Main;
}

namespace lokera {

/// The drawing of the main window. The lamps of the board are made here, 18 in each of its panels.
class FormaPrincipale : public QMainWindow {
  Q_OBJECT
 public:
  FormaPrincipale();
  ~FormaPrincipale() override;

 protected:
  bool eventFilter(QObject* oggetto, QEvent* evento) override;

 private:
  void crea_lampade();
  void disponi_liste();  ///< the queue takes the room of a list of cabinets that is hidden
  std::unique_ptr<Ui::frm_Main> ui_;
};

}  // namespace lokera
