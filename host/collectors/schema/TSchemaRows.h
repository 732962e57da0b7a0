#pragma once

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "ICIMQualifierDecl.h"
#include "TCIMValue.h"

namespace NZELVYR20 {

/// A qualifier that the schema declares.
struct TQualifierRow {
  std::string name;
  TCIMValue defaultValue;  ///< gives the type
  ICIMQualifierDecl::EScope scope;
  ICIMQualifierDecl::EFlavor flavor;
};

/// A qualifier as it stands on a class or property.
struct TQualifierUse {
  std::string name;
  TCIMValue value;
};

/// The numbers that a property may have, and what they mean.
using TMeanings = std::vector<std::pair<unsigned, const char*>>;

/// A property of a class of the schema. The operations add qualifiers.
struct TPropertyRow {
  TPropertyRow(std::string propertyName, TCIMValue::TCIMType propertyType, const char* description);

  /// A reference to instances of a class and of its subclasses.
  static TPropertyRow Reference(std::string name, std::string className, const char* description);

  TPropertyRow Key() const;
  /// Takes the place of the inherited declaration; its qualifiers are not taken over.
  TPropertyRow Override() const;
  /// The unit, in the words that the display of values knows.
  TPropertyRow In(const char* unit) const;
  TPropertyRow Meaning(const TMeanings& meanings) const;
  TPropertyRow With(const char* qualifier, const TCIMValue& value) const;

  std::string name;
  TCIMValue::TCIMType type;
  std::string referencedClass;  ///< of a reference
  std::vector<TQualifierUse> qualifiers;
};

/// A method of a class of the schema. Nothing can run it: consumers see what a machine could do.
struct TMethodRow {
  TMethodRow(std::string methodName, TCIMValue::TCIMType type, const char* description,
             std::vector<TPropertyRow> methodParameters = {});

  std::string name;
  TCIMValue::TCIMType returnType;
  std::vector<TQualifierUse> qualifiers;
  std::vector<TPropertyRow> parameters;
};

/// A class of the schema.
struct TClassRow {
  /// What a class is besides an ordinary one.
  enum EKind { kConcrete, kAbstract, kAssociation, kAbstractAssociation };

  TClassRow(std::string className, std::string superClassName, EKind kind, const char* description,
            std::vector<TPropertyRow> classProperties);

  TClassRow With(const char* qualifier, const TCIMValue& value) const;
  TClassRow Does(TMethodRow method) const;

  std::string name;
  std::string superClass;  ///< empty for a class without one
  std::vector<TQualifierUse> qualifiers;
  std::vector<TPropertyRow> properties;
  std::vector<TMethodRow> methods;
};

/// The rows of all parts, in order.
std::vector<TClassRow> JoinRows(std::initializer_list<std::vector<TClassRow>> parts);

/// The qualifiers of the schema.
std::vector<TQualifierRow> GetQualifierRows();

/// The classes of the schema, in parts; the classes that a part needs stand in it or in those
/// before it, and always above those that need them.
std::vector<TClassRow> GetSystemClassRows();
std::vector<TClassRow> GetDeviceClassRows();
std::vector<TClassRow> GetPciClassRows();
std::vector<TClassRow> GetStorageClassRows();
std::vector<TClassRow> GetAssociationClassRows();

}  // namespace NZELVYR20
