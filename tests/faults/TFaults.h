#pragma once

namespace NZELVYR20 {

/// What can be made to fail: the operator new of this program, which what it loads shares, and, but
/// for builds whose sanitizer owns them, the functions of C by which loader, threads and exceptions
/// get their memory; and the logger of the model test.
class TFaults {
 public:
  /// kMemory: new and C alike, and from the n-th on every one.
  enum class EKind { kNone, kNew, kC, kMemory, kLog };

  /// Whether this build can make the functions of C fail; and from one event that fails to the
  /// next, since a sanitizer makes each run ten times as long.
#ifdef VYR_SANITIZED
  static constexpr bool kHasC = false;
  static constexpr int kStep = 5;
#else
  static constexpr bool kHasC = true;
  static constexpr int kStep = 1;
#endif

  TFaults() = delete;

  /// From now on the n-th event of the kind fails.
  static void Arm(EKind kind, int n);
  /// Nothing fails any more; tells whether something did.
  static bool Disarm();
  /// Whether this event, of new, C or the log, is one that fails.
  static bool Strikes(EKind kind);

  /// Those of new.
  static long CountLiveAllocations();
};

}  // namespace NZELVYR20
