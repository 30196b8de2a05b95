#pragma once

#include "forms/controlli.h"
#include "forms/traduttore.h"
#include "platform/polled_wait.h"

namespace lokera {

/// A long work of a window as the person sees it: a bar, how many of how many are done, a button to stop it.
/// Bar and button show only while it runs; the label keeps how far it came.
class Lavoro {
 public:
  Lavoro(Finestra& finestra, PolledWait& attesa, Traduttore& traduttore);

  /// One run, on the stack of who does the work: `for (int i = 0; corsa.continua(i); ++i)`. Until it is gone
  /// the window only notes the wish to close. One that begins while another runs has nothing to do.
  class Corsa {
   public:
    /// `forma`: how far it is, in words; "%1" how many are done, "%2" of how many.
    Corsa(Lavoro& lavoro, int quanti, const QString& forma = u"%1 di %2"_s);
    ~Corsa();
    Corsa(const Corsa&) = delete;
    Corsa& operator=(const Corsa&) = delete;

    /// Before each item: whether there is another one to do. Runs the event loop now and then, so nothing
    /// read before it holds after it. False for good once all are done, the person has pressed the button or
    /// wants to close the window.
    bool continua(int fatti);
    bool finito() const { return fatti_ >= quanti_; }  ///< all were done

   private:
    void mostra();

    const Finestra::Attesa attesa_;
    Lavoro& lavoro_;
    const int quanti_;
    const QString forma_;  ///< in the language of the interface
    int fatti_ = 0;
    bool sua_;  ///< the controls are this run's
    Monotonic ceduto_;
  };

  bool in_corso() const { return in_corso_; }

  ProgressBar pgbLavoro;
  Label lblLavoro;
  CommandButton cmdInterrompi;

 private:
  void mostra_comandi(bool in_corso);

  Finestra& finestra_;
  PolledWait& attesa_;
  Traduttore& traduttore_;
  bool in_corso_ = false;
  bool interrotto_ = false;
};

}  // namespace lokera
