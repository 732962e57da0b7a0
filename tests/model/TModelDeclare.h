#pragma once

#include "TModelClass.h"

// What a class makes of declarations.

namespace NZELVYR20 {

inline void TModelClass::AddPropertyDecl(TPtr<ICIMPropertyDecl> given) {
  const auto added = boost::static_pointer_cast<TModelPropertyDecl>(given);
  const std::string attempt = "Inmem: Attempt to override property " + added->name + " in class ";
  if (added->GetType({}) == TType::kReference && !IsAssociation({})) {
    Refuse(
        22, 0,
        "Attempt to add reference property " + added->name + " to non-association class " + name);
  }
  const auto earlier = properties.Find(added->name);
  bool isAdded = earlier == nullptr;
  if (!added->qualifiers.Find("OVERRIDE")) {
    isAdded |= Contains(added->name, "PortType") || Contains(added->name, "speedDuplex");
  } else if (!earlier) {
    if (!Contains(Normalize(added->name), "porttype")) {
      LogModel(3, attempt + name + ": property doesn't exist in base class");
    }
  } else if (earlier->GetType({}) != added->GetType({})) {
    LogModel(3, attempt + name + ": different types");
  } else {
    isAdded = earlier->owner.lock().get() != this;
  }
  if (isAdded) properties.Put(Normalize(added->name), added);
}

inline void TModelClass::AddMethodDecl(TPtr<ICIMMethodDecl> given) {
  const auto added = boost::static_pointer_cast<TModelMethodDecl>(given);
  const auto earlier = methods.Find(added->name);
  const std::string attempt =
      "Inmem: Attempt to override method " + added->name + " in class " + name + ": ";
  const auto fail = [&](int status, TText why) {
    LogModel(3, attempt + why);
    Refuse(status, 3,
           "Attempt define method " + added->name + " in class " + name +
               "failed. Reason = " + TVYRException(status).what());
  };
  if (!added->qualifiers.Find("OVERRIDE")) {
    if (earlier) {
      Refuse(16, 3,
             "Attempt to add method " + added->name + " to class " + name + ": already exists");
    }
  } else if (!earlier) {
    LogModel(3, attempt + "method doesn't exist in base class");
  } else if (earlier->GetReturnType({}) != added->GetReturnType({})) {
    fail(14, "different types");
  } else if (earlier->owner.lock().get() == this) {
    fail(16, "original was defined in this class");
  }
  methods.Put(Normalize(added->name), added);
}

}  // namespace NZELVYR20
