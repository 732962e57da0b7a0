#pragma once

#include <string>
#include <string_view>

namespace NZELVYR20 {

/// What keeps a declaration from being read. Never leaves the parser.
struct TMofSyntaxError {
  const char* where;        ///< in the source's text
  std::string text;         ///< for its reader
  bool isAtTheEnd = false;  ///< what follows belongs to it, up to the end of the text
};

/// Whether names and keywords may hold it.
bool BelongsToWord(char byte);

/// A piece of the source as messages show it: in quotes, and cut where it is long.
std::string QuoteMof(std::string_view piece);

/// What stands there, for messages that expected something else. `rest` goes to the text's end.
std::string DescribeMof(std::string_view rest);

}  // namespace NZELVYR20
