#pragma once

#include "link/sessione_download.h"

namespace lokera {

/// What stands still while a window has the session: the visits, or the ticks altogether, and with them the
/// time bands.
enum class Fermi { visite, tick };

/// "This window has the session", from its making to its end. It takes the session at once: a visit, or a
/// read of stored records, that is under way ends and touches nothing more, none begins, and what the cabinet
/// still sends of it is not taken in. The connection stays as it was found.
///
/// At its end the socket is closed, so that the next one, and the next visit, dial anew. Several windows may
/// have it, in any order: the last that took it talks, one that ends under it leaves it alone, and visits and
/// ticks go on when no window is left that stops them. The session must outlive it.
class SessioneTenuta {
 public:
  SessioneTenuta(SessioneDownload& sessione, Fermi fermi);
  ~SessioneTenuta();
  Q_DISABLE_COPY_MOVE(SessioneTenuta)

  /// `connessione_socket_download`, in this window's name. Runs the loop.
  void connetti() { conversazione_ = sessione_.connessione_socket_download(); }
  /// Whether nobody else has taken the session since.
  bool mia() const { return sessione_.in_corso(conversazione_); }

 private:
  SessioneDownload& sessione_;
  const Fermi fermi_;
  int conversazione_;
};

}  // namespace lokera
