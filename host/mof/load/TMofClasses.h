#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "MofSyntax.h"
#include "TMofDiagnostics.h"
#include "TMofFeatures.h"
#include "TMofLeftOut.h"
#include "TMofQualifiers.h"
#include "TMofSummary.h"

namespace NZELVYR20 {

/// The classes that a class cannot do without: its superclass, and those to which it refers.
std::vector<TMofName> GetNeededClasses(const TMofClass& cimClass);

/// Enters the classes of one batch, each after those that it needs and whole or not at all.
/// Associations may refer to each other in a circle: what is referred to is then allocated before
/// it is its turn.
class TMofClasses {
 public:
  using TProgress = std::function<void(std::size_t done, std::size_t all)>;

  /// The classes outlive this object, as do the others.
  TMofClasses(boost::shared_ptr<ICIMNamespace> nameSpace, TMofDiagnostics& diagnostics,
              TMofSummary& summary, TMofQualifiers& qualifiers, TMofLeftOut& leftOut,
              const std::vector<TMofClass>& classes);

  void Enter(const TProgress& onProgress);

 private:
  enum class EState { kPending, kEntered, kLeftOut };

  struct TEntry {
    const TMofClass* syntax;
    boost::shared_ptr<ICIMClass> cimClass;  ///< empty before it is allocated
    EState state = EState::kPending;
  };

  void AddEntry(const TMofClass& cimClass);
  std::vector<std::size_t> GetNeeds(const TEntry& entry) const;
  TEntry* FindEntry(const std::string& name);
  const TEntry* FindEntry(const std::string& name) const;

  void EnterAfterSuperClasses(TEntry& entry);
  void EnterOne(TEntry& entry);
  void EnterOrReport(TEntry& entry);
  void Declare(TEntry& entry);
  void Allocate(TEntry& entry);
  boost::shared_ptr<ICIMClass> FindSuperClass(const TMofClass& cimClass);
  boost::shared_ptr<ICIMClass> FindReferencedClass(const TMofName& name);
  boost::shared_ptr<ICIMClass> FindClass(const TMofName& name, const TEntry* entry) const;
  void Refuse(const TMofName& name, const std::string& why);
  bool IsKnown(const std::string& name) const;

  boost::shared_ptr<ICIMNamespace> namespace_;
  TMofDiagnostics& diagnostics_;
  TMofSummary& summary_;
  TMofQualifiers& qualifiers_;
  TMofLeftOut& leftOut_;
  TMofFeatures features_;
  std::vector<TEntry> entries_;
  std::unordered_map<std::string, std::size_t> byName_;  ///< folded
};

}  // namespace NZELVYR20
