#pragma once

namespace lokera {

/// The pointer of the mouse.
class Pointer {
 public:
  virtual ~Pointer() = default;
  /// The hourglass, until as many calls of `normale` have followed as there were of this. A box that opens
  /// meanwhile has the arrow.
  virtual void attesa() = 0;
  virtual void normale() = 0;
};

/// The hourglass for as long as it lives.
class Clessidra {
 public:
  explicit Clessidra(Pointer& puntatore) : puntatore_(puntatore) { puntatore_.attesa(); }
  ~Clessidra() { puntatore_.normale(); }
  Clessidra(const Clessidra&) = delete;
  Clessidra& operator=(const Clessidra&) = delete;

 private:
  Pointer& puntatore_;
};

}  // namespace lokera
