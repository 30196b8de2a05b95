#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace lokera {

class Controllo;
class Finestra;

/// The list of loaded windows, in the order of their loading.
class ElencoFinestre {
 public:
  int conta() const { return static_cast<int>(finestre_.size()); }
  Finestra* trova(QStringView nome) const;  ///< null when no such window is loaded
  const std::vector<Finestra*>& tutte() const { return finestre_; }

 private:
  friend class Finestra;
  std::vector<Finestra*> finestre_;
};

/// Who draws a window. Called at once on each change, from whatever code made it; must not change the state.
class VistaFinestra {
 public:
  virtual ~VistaFinestra() = default;
  virtual void cambiata(Finestra& finestra) = 0;
  virtual void cambiato(Controllo& controllo) = 0;
  virtual void fuoco(Controllo& controllo) = 0;  ///< the rules move the focus there
  /// The window goes away while it is being drawn; its controls are gone already.
  virtual void distrutta(Finestra& /*finestra*/) {}
};

/// How a window stands among the others and on the screen.
struct PostoFinestra {
  bool modale = false;    ///< while it is open the others take no input
  bool si_adatta = true;  ///< the sizing rule may stretch it to the screen
};

/// A window as state: its title and its controls under their own names. It is loaded while it lives. The
/// class of a window's rules derives from it and has the controls as members.
class Finestra {
 public:
  Finestra(ElencoFinestre& elenco, QString nome, PostoFinestra posto = {});
  virtual ~Finestra();
  Finestra(const Finestra&) = delete;
  Finestra& operator=(const Finestra&) = delete;

  const QString& nome() const { return nome_; }
  const PostoFinestra& posto() const { return posto_; }
  const QString& Caption() const { return titolo_; }
  void Caption(const QString& titolo);
  bool Enabled() const { return abilitata_; }
  void Enabled(bool abilitata);

  const std::vector<Controllo*>& Controls() const {
    return controlli_;
  }                                              ///< in the order of their declaration
  Controllo* controllo(QStringView nome) const;  ///< null when there is none
  void SetFocus(Controllo& controllo);
  Controllo* ActiveControl() const { return attivo_; }  ///< null before any had the focus

  /// A wait of this window's own is on the stack while one of these lives; the window must outlive it.
  class Attesa {
   public:
    explicit Attesa(Finestra& f);
    ~Attesa();
    Attesa(const Attesa&) = delete;
    Attesa& operator=(const Attesa&) = delete;

   private:
    Finestra& f_;
  };

  bool in_attesa() const { return attese_ > 0; }
  /// The first wait has begun, or the last one ended: what may be pressed meanwhile is the window's to say.
  virtual void attesa_cambiata() {}

  /// The user asks to close the window (close box). It asks `Form_Unload` first; while a wait of the window's
  /// own runs it only notes the wish, and closes after it. `Chiusa` is called when the window may be
  /// destroyed, from the event that closed it; the owner destroys it later, from the event loop.
  void chiudi();
  bool chiusa() const { return chiusa_; }
  /// The wish has been noted: what a wait of the window's own was for goes no further.
  bool in_chiusura() const { return chiusura_chiesta_; }
  std::function<void()> Chiusa;

  /// What happens when the window is shown, after its controls are bound to what draws them.
  virtual void Form_Load() {}
  /// Returns whether the window may close.
  virtual bool Form_Unload() { return true; }

  void vista(VistaFinestra* vista) { vista_ = vista; }  ///< not owned; null for none

 private:
  friend class Controllo;
  void notifica(Controllo& controllo);

  ElencoFinestre& elenco_;
  const QString nome_;
  const PostoFinestra posto_;
  QString titolo_;
  bool abilitata_ = true;
  bool chiusa_ = false;
  bool chiusura_chiesta_ = false;
  int attese_ = 0;
  std::vector<Controllo*> controlli_;
  Controllo* attivo_ = nullptr;
  VistaFinestra* vista_ = nullptr;
};

}  // namespace lokera
