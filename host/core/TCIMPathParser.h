#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <vector>

#include "TCIMReference.h"
#include "TCIMValue.h"

namespace NZELVYR20 {

class ICIMClass;
class ICIMNamespace;

/// Text that knows where it came from: the column of each byte and of the end. A path inside a
/// quoted text has had its escapes undone, yet its errors name the columns of the outermost text.
struct TLocatedText {
  std::string text;
  std::vector<std::size_t> columns;
};

/// Reads the written form of an object path; see TCIMReference::Parse.
class TCIMPathParser {
 public:
  static TCIMReference ParseText(const std::string& text,
                                 const boost::shared_ptr<ICIMNamespace>& nameSpace);

 private:
  struct TToken {
    TLocatedText content;
    std::size_t column = 0;
    bool isQuoted = false;
  };

  struct TKey {
    std::string name;  ///< in the spelling of the declaration
    TCIMValue::TCIMType type;
  };

  TCIMPathParser(TLocatedText source, const boost::shared_ptr<ICIMNamespace>& nameSpace,
                 unsigned depth);

  TCIMReference Parse();
  boost::shared_ptr<ICIMClass> FindClass(const TToken& name) const;
  void ParseKeys(const boost::shared_ptr<ICIMClass>& cimClass, TCIMReference& path);
  static TKey FindKey(const boost::shared_ptr<ICIMClass>& cimClass, const TToken& name);

  void SkipSpace();
  void SkipNamespace();
  bool Accept(char character);
  TToken ReadName(const char* what);
  TToken ReadValueToken();
  TToken ReadQuoted();
  TToken ReadBare();

  TCIMValue ReadValue(const TKey& key, const TToken& token) const;
  TCIMValue ReadReference(const TToken& token) const;

  std::size_t GetColumn() const { return source_.columns[position_]; }

  TLocatedText source_;
  boost::shared_ptr<ICIMNamespace> nameSpace_;
  unsigned depth_;
  std::size_t position_ = 0;
};

}  // namespace NZELVYR20
