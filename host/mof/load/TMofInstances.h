#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "MofSyntax.h"
#include "OrderByNeeds.h"
#include "TCIMReference.h"
#include "TMofDiagnostics.h"
#include "TMofKnownClass.h"
#include "TMofLeftOut.h"
#include "TMofSummary.h"
#include "TMofValues.h"

namespace NZELVYR20 {

/// Enters the instances of one batch, each after those to which it refers, by alias or by path.
class TMofInstances {
 public:
  using TProgress = std::function<void(std::size_t done, std::size_t all)>;

  /// The instances outlive this object, as do the others.
  TMofInstances(boost::shared_ptr<ICIMNamespace> nameSpace, TMofDiagnostics& diagnostics,
                TMofSummary& summary, TMofLeftOut& leftOut, std::vector<TMofInstance> instances);

  void Enter(const TProgress& onProgress);

 private:
  /// What a property refers to.
  struct TReferred {
    std::string path;
    const TMofAssignment* assignment;
  };
  using TMember = TMofKnownClass::TMember;
  using TTargets = std::unordered_map<std::string, std::size_t>;

  struct TDraft {
    TMofInstance* syntax;
    boost::shared_ptr<ICIMInstance> instance;  ///< empty before it is filled, or where it is wrong
    std::vector<TReferred> referred;
  };

  std::vector<std::size_t> Order(const TTargets& targets, const TGetNeeds& getNeeds) const;
  std::vector<std::size_t> FillAll();
  void RegisterPaths(const std::vector<std::size_t>& order);
  void AddAll(const TProgress& onProgress);
  void RegisterAlias(std::size_t index);
  std::vector<std::size_t> GetAliasNeeds(std::size_t index) const;
  std::vector<std::size_t> GetPathNeeds(std::size_t index) const;
  TCIMReference GetAliasPath(const TMofLiteral& alias) const;

  void FillOrReport(TDraft& draft);
  void Fill(TDraft& draft);
  TMofKnownClass& GetClass(const TMofName& name);
  void Assign(TDraft& draft, ICIMInstance& instance, const TMofAssignment& assignment,
              const TMember& member, bool isFirst);
  void AddOrReport(const TDraft& draft);
  void AddOne(const TDraft& draft);
  void Refuse(const TDraft& draft, const TMofPlace& place, const std::string& why);
  void ExplainRefusal(const TDraft& draft, const std::string& why);
  void LeaveOut(const TDraft& draft, const TMofNeed& need);
  void NoteLeftOut(const TDraft& draft);

  boost::shared_ptr<ICIMNamespace> namespace_;
  TMofDiagnostics& diagnostics_;
  TMofSummary& summary_;
  TMofLeftOut& leftOut_;
  TMofValues values_;
  std::unordered_map<std::string, TMofKnownClass> classes_;  ///< by name, in every spelling
  std::pair<const std::string, TMofKnownClass>* lastClass_ = nullptr;
  std::vector<TMofInstance> instances_;
  std::vector<TDraft> drafts_;
  std::vector<const ICIMPropertyDecl*> assigned_;  ///< in the instance that is being filled
  TTargets byAlias_;                               ///< folded
  TTargets byPath_;                                ///< empty where none refers to another
};

}  // namespace NZELVYR20
