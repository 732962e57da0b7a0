#pragma once

#include <string>

#include "TCIMValue.h"

// The written form of object paths, as TCIMReference writes it and TCIMPathParser reads it.

namespace NZELVYR20 {

enum class EPathForm {
  kCanonical,  ///< the index key: names folded
  kDeclared,   ///< for people: names in the spelling of their declarations
};

inline bool IsNameStart(char character) noexcept {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         character == '_';
}
inline bool IsNamePart(char character) noexcept {
  return IsNameStart(character) || (character >= '0' && character <= '9');
}

/// The text in quotes, with quotes and back-slashes escaped.
std::string QuoteText(const std::string& text);

/// Appends a key's name as a path shows it: bare where it is a CIM name, else quoted.
void AppendKeyName(std::string& path, const std::string& name, EPathForm form);

/// Appends a key's value as a path shows it.
void AppendKeyValue(std::string& path, const TCIMValue& value, EPathForm form);

}  // namespace NZELVYR20
