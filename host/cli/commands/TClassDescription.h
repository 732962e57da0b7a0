#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMClass.h"

namespace NZELVYR20 {

/// The text about one class. Sections without content are left out.
class TClassDescription {
 public:
  explicit TClassDescription(boost::shared_ptr<ICIMClass> cimClass);

  std::string ToString() const;

 private:
  std::string Header() const;
  std::string Qualifiers() const;
  std::string Properties() const;
  std::string Methods() const;

  boost::shared_ptr<ICIMClass> class_;
};

}  // namespace NZELVYR20
