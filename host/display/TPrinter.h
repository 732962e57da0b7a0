#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ICIMProperty.h"
#include "TCIMValue.h"

namespace NZELVYR20 {

/// How the elements of the repository are written.
class TPrinter {
 public:
  TPrinter() = delete;

  /// The value of an instance's property as people read it: with the texts, units and scaling that
  /// its declaration asks for.
  static std::string PropertyText(const ICIMProperty& property);
  /// The same for one that is no array, which may have several lines: with units that the
  /// repository's own display does not know, and the mark of a hexadecimal number. References are
  /// the paths that lists print.
  static std::string ScalarText(const ICIMProperty& property);

  /// The same for each element of an array that is not null. Where the repository has no display
  /// for one, such as a null among values with meanings, all are as they are stored.
  static std::vector<std::string> ElementTexts(const ICIMProperty& property);

  /// A value as it is stored.
  static std::string ValueText(const TCIMValue& value);
  /// The same so that it can be read back: date-times in the CIM text form, arrays as JSON.
  static std::string StoredText(const TCIMValue& value);

  /// The type of a value; for a reference with the class to which it points.
  static std::string TypeText(const TCIMValue& value);

  /// The object path in one line, as the commands accept it.
  static std::string PathText(const ICIMInstance& instance);

  /// "abstract", "association" or both; empty for any other class.
  static std::string ClassMarks(const ICIMClass& cimClass);
  /// The name, with the marks in brackets where there are any.
  static std::string ClassText(const ICIMClass& cimClass);
};

}  // namespace NZELVYR20
