#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "TInmemInstance.h"

namespace NZELVYR20 {

// The callbacks of the walks along associations, each bound to the instance from which the walk
// starts, under the names by which hosts' documents know them. They refer to the caller's callback
// and role, and so live no longer than the call that makes them. Association instances come from
// tables of this repository and are its own.

/// Takes the association classes of a references walk.
struct TReferencesCallback {
  boost::shared_ptr<TInmemInstance> instance;
  const TCIMInstanceCallback& callback;
  const std::string& role;
  EFollows follows;

  bool operator()(const boost::shared_ptr<ICIMClass>& assocClass) const {
    return instance->ExamineCandidateClass(callback, role, follows, assocClass);
  }
};

/// Takes the association instances of a references walk.
struct TExamineInstanceCallback {
  boost::shared_ptr<TInmemInstance> instance;
  const TCIMInstanceCallback& callback;

  bool operator()(const boost::shared_ptr<ICIMInstance>& assocInstance) const {
    return instance->ExamineCandidateClassInstance(callback, assocInstance);
  }
};

/// The same, with a role.
struct TExamineInstanceWithRoleCallback {
  boost::shared_ptr<TInmemInstance> instance;
  const TCIMInstanceCallback& callback;
  const std::string& role;

  bool operator()(const boost::shared_ptr<ICIMInstance>& assocInstance) const {
    return instance->ExamineCandidateClassInstanceWithRole(callback, role, assocInstance);
  }
};

/// Takes the association instances of an associators walk.
struct TAssociatorsExamineCallback {
  boost::shared_ptr<TInmemInstance> instance;
  const TCIMInstanceCallback& callback;
  const std::string& role;
  boost::shared_ptr<ICIMClass> resultClass;

  bool operator()(const boost::shared_ptr<ICIMInstance>& assocInstance) const {
    return instance->ExamineCandidate(callback, resultClass, role,
                                      boost::static_pointer_cast<TInmemInstance>(assocInstance));
  }
};

/// The same, with a result role.
struct TAssociatorsExamineWithResultRoleCallback {
  boost::shared_ptr<TInmemInstance> instance;
  const TCIMInstanceCallback& callback;
  const std::string& resultRole;
  boost::shared_ptr<ICIMClass> resultClass;

  bool operator()(const boost::shared_ptr<ICIMInstance>& assocInstance) const {
    return instance->ExamineCandidateWithResultRole(
        callback, resultClass, resultRole,
        boost::static_pointer_cast<TInmemInstance>(assocInstance));
  }
};

}  // namespace NZELVYR20
