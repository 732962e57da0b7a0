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

/// Enters the classes of one batch, each after those that it needs and whole or not at all. Classes
/// that need each other in a circle are entered together: none of them where one is wrong, since
/// what was added to a namespace cannot be taken out again.
class TMofClasses {
 public:
  using TProgress = std::function<void(std::size_t done, std::size_t all)>;

  /// The classes outlive this object, as do the others.
  TMofClasses(boost::shared_ptr<ICIMNamespace> nameSpace, TMofDiagnostics& diagnostics,
              TMofSummary& summary, TMofQualifiers& qualifiers, TMofLeftOut& leftOut,
              TMofReferenceClasses& referenceClasses, const std::vector<TMofClass>& classes);

  void Enter(const TProgress& onProgress);

 private:
  /// How far a class has come.
  enum class EState { kLeftOut, kPending, kAllocated, kDeclared, kEntered };

  struct TEntry {
    const TMofClass* syntax;
    boost::shared_ptr<ICIMClass> cimClass;  ///< empty before it is allocated
    EState state = EState::kPending;
  };

  void AddEntry(const TMofClass& cimClass);
  const TEntry* FindEntry(const std::string& name) const;
  std::vector<std::size_t> GetNeeds(const std::vector<TMofName>& names) const;

  void EnterGroup(const std::vector<std::size_t>& group);
  void DeclareGroup(const std::vector<std::size_t>& group);
  std::vector<std::size_t> GetNeededSteps(std::size_t step,
                                          const std::vector<std::size_t>& group) const;
  void RequireAll(const std::vector<std::size_t>& group) const;
  template <class TStep>
  void Try(TEntry& entry, const TStep& step);
  void Refuse(const TMofName& name, const std::string& why);

  void Allocate(TEntry& entry);
  void Declare(TEntry& entry);
  void Add(TEntry& entry);
  boost::shared_ptr<ICIMClass> FindClass(const TMofName& name, EState least) const;
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
