#pragma once

namespace NZELVYR20 {

/// What can be made to fail: this program's operator new, and the logger of TFaultTest.
class TFaults {
 public:
  enum class EKind { kNone, kAllocation, kLog };

  TFaults() = delete;

  /// From now on the n-th event of the kind fails.
  static void Arm(EKind kind, int n);
  /// Nothing fails any more; tells whether something did.
  static bool Disarm();
  /// Whether this event is the one that fails.
  static bool Strikes(EKind kind);

  static long CountLiveAllocations();
  static long CountAllocations();

  /// Nothing fails as long as it lives: for the host's side of a call.
  class TPause {
   public:
    TPause();
    TPause(const TPause&) = delete;
    TPause& operator=(const TPause&) = delete;
    ~TPause();

   private:
    EKind kind_;
  };
};

}  // namespace NZELVYR20
