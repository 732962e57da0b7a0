#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <unordered_map>

#include "ICIMClass.h"
#include "ICIMPropertyDecl.h"
#include "MofSyntax.h"

namespace NZELVYR20 {

/// What many instances ask of their class: each property once, since no class changes while
/// instances are filled.
class TMofKnownClass {
 public:
  struct TMember {
    boost::shared_ptr<const ICIMPropertyDecl> declaration;
    TCIMValue::TCIMType type;
    const std::string* name = nullptr;  ///< as instances spell it
    TMember* next = nullptr;            ///< which was asked for after this one the last time
  };

  explicit TMofKnownClass(boost::shared_ptr<ICIMClass> cimClass);
  TMofKnownClass(const TMofKnownClass&) = delete;
  TMofKnownClass& operator=(const TMofKnownClass&) = delete;

  boost::shared_ptr<ICIMInstance> AllocateInstance() const;

  /// The class is asked: an instance answers for some properties that nobody declared. Throws
  /// TMofFault where there is no such property.
  const TMember& GetMember(const TMofName& name);

 private:
  TMember& FindMember(const TMofName& name);

  boost::shared_ptr<ICIMClass> class_;
  std::unordered_map<std::string, TMember> members_;  ///< by name, in every spelling
  TMember* last_ = nullptr;
};

}  // namespace NZELVYR20
