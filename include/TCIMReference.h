#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>
#include <utility>
#include <vector>

#include "TCIMContext.h"
#include "TCIMValue.h"
#include "VYRExport.h"

namespace NZELVYR20 {

class ICIMClass;
class ICIMElement;
class ICIMNamespace;

/// An object path: a class and the key values that name one of its instances.
///
/// A path holds its class and owns its key values; its namespace it knows only weakly, so that a
/// path never keeps a namespace alive.
class VYR_EXPORT TCIMReference {
 public:
  /// A path without class and keys. `nameSpace` may be empty: such a path resolves in the
  /// namespace of its class. The context is not used.
  TCIMReference(const boost::shared_ptr<ICIMNamespace>& nameSpace, const TCIMContext& context);

  /// @{
  /// A copy owns key values of its own. An assignment that fails leaves the path as it was.
  TCIMReference(const TCIMReference& other) = default;
  TCIMReference(TCIMReference&& other) noexcept = default;
  TCIMReference& operator=(const TCIMReference& other) { return *this = TCIMReference(other); }
  TCIMReference& operator=(TCIMReference&& other) noexcept = default;
  /// @}
  ~TCIMReference() = default;

  /// Makes the path one of this class; the keys stay as they are. Empty takes the class away.
  void SetClass(const boost::shared_ptr<ICIMClass>& cimClass);

  /// Adds a key, or replaces the value of one whose name differs at most in letter case; that one
  /// keeps its place and spelling. A null value is a value too.
  void AddKeyValue(const std::string& name, const TCIMValue& value);

  /// The class that was set; empty when none was.
  boost::shared_ptr<ICIMClass> GetClass() const;

  /// The name as the class reports it; empty without a class.
  std::string GetClassName() const;

  /// The canonical text, under which instances are indexed: the class name as the class reports
  /// it, then the keys in ascending order of their folded names, names folded. Strings stand
  /// quoted with quotes and back-slashes escaped, numbers and booleans bare, characters and
  /// date-times quoted, a reference as its quoted and escaped path, null as NULL; without keys the
  /// class name stands alone. No namespace takes part. A name that is no CIM name is quoted, too.
  /// Types take no part: a key has the type that its class declares. Among values of one type (and
  /// between null, numbers, booleans and strings) different keys never give the same text.
  /// A reference key whose own path is longer than 8 MiB throws std::length_error: each further
  /// level would double it.
  /// The text stays valid until the path changes; the first call makes it, so that a path shared
  /// between threads needs a lock even for reading.
  const std::string& GetPath() const;

  /// That of a temporary, whose text would go with it: the caller's own. A template, since beside
  /// the operation above no other could tell temporaries from the rest.
  template <class = void>
  std::string GetPath() && {
    const TCIMReference& path = *this;
    return path.GetPath();
  }

  /// The path as people read it: as GetPath(), but with the key names as they were given and in
  /// the order in which they were added.
  std::string ToString() const;

  /// Resolves the path: `wantsClass` asks for the class that it names, otherwise for the
  /// instance. The path's own namespace is asked if it lives, else that of the class. Throws
  /// status 15 when nothing is there, and passes on what the namespace's GetInstance throws.
  boost::shared_ptr<ICIMElement> GetCIMElement(bool wantsClass) const;

  /// Reads a path such as CIM_Disk.DeviceID="sda",SystemName="box", in any letter case and order
  /// of keys; what ToString() writes for an instance of a class reads back. A namespace before the
  /// class, as in root/cimv2:CIM_Disk or //host:5988/root/cimv2:CIM_Disk, is skipped. The class is
  /// looked up in `nameSpace`, the keys take the spelling and types of their declarations; a
  /// class's other properties are refused, and keys may be missing. Throws std::invalid_argument
  /// with a message that names what is wrong and the column; passes on status 15 of an unknown
  /// class, while one inside a reference key is named by such a message.
  static TCIMReference Parse(const std::string& text,
                             const boost::shared_ptr<ICIMNamespace>& nameSpace);

 private:
  boost::weak_ptr<ICIMNamespace> namespace_;
  boost::shared_ptr<ICIMClass> class_;
  std::vector<std::pair<std::string, TCIMValue>> keys_;  ///< as given, in order of addition
  mutable std::string path_;  ///< cache of GetPath(); empty where it has to be made anew
};

}  // namespace NZELVYR20
