#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "ListElements.h"
#include "TElementForm.h"

namespace NZELVYR20 {

class TQueryTokens;

/// A question to one class, in the part that WQL and DMTF:CQL have in common: SELECT, "*" or names
/// of properties, FROM, a class, and perhaps WHERE with comparisons of its properties with values,
/// LIKE, IS NULL, AND, OR, NOT and brackets. Nothing of it can read another class or call anything.
class TQuery {
 public:
  /// Throws a TCimFailure where the language is another or the text is no such query.
  TQuery(const std::string& language, const std::string& text,
         boost::shared_ptr<ICIMNamespace> nameSpace);

  /// The class that is asked.
  const boost::shared_ptr<ICIMClass>& GetClass() const { return class_; }
  /// With the properties that were asked for.
  const TElementForm& GetForm() const { return form_; }
  /// Its instances and those of its subclasses that the query wants. Throws a TCimFailure.
  TInstanceList Select() const;

 private:
  std::string FindProperty(const std::string& name) const;
  std::string ReadCondition(TQueryTokens& tokens) const;

  boost::shared_ptr<ICIMNamespace> namespace_;
  boost::shared_ptr<ICIMClass> class_;
  TElementForm form_;
  std::string condition_;  ///< in SQL; empty: none
};

}  // namespace NZELVYR20
