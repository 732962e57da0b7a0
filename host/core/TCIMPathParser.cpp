#include "TCIMPathParser.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <stdexcept>
#include <utility>

#include "FoldName.h"
#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "ICIMPropertyDecl.h"
#include "KeyValueReader.h"
#include "PathText.h"
#include "StartsCharacter.h"
#include "TVYRException.h"

namespace NZELVYR20 {

namespace {

// Each level doubles the escapes, so that an honest path never comes near.
constexpr unsigned kMaxDepth = 16;

[[noreturn]] void Fail(std::size_t column, const std::string& message) {
  throw std::invalid_argument("column " + std::to_string(column) + ": " + message);
}

bool IsSpace(char character) {
  return character != '\0' && std::strchr(" \t\r\n\f\v", character) != nullptr;
}

// A column is a character as people count them, not a byte of its UTF-8.
TLocatedText Locate(const std::string& text) {
  TLocatedText located{text, {}};
  located.columns.reserve(text.size() + 1);
  std::size_t column = 0;
  for (const char byte : text) {
    if (StartsCharacter(byte) || column == 0) ++column;
    located.columns.push_back(column);
  }
  located.columns.push_back(column + 1);
  return located;
}

// The class itself tells its keys, so that no second rule of what makes a key stands here.
std::string DeclaredKeyName(const boost::shared_ptr<ICIMClass>& cimClass, const std::string& name) {
  std::string declaredName;
  cimClass->EnumerateKeyNames(
      [&](const std::string* keyName) {
        if (CompareFolded(*keyName, name) == 0) declaredName = *keyName;
        return declaredName.empty();
      },
      {});
  return declaredName;
}

boost::shared_ptr<ICIMPropertyDecl> FindPropertyDecl(const boost::shared_ptr<ICIMClass>& cimClass,
                                                     const std::string& name) {
  try {
    return cimClass->GetPropertyDecl(name, {});
  } catch (const TVYRException& exception) {
    if (exception.GetStatusCode() != TVYRStatusCode::kNotFound) throw;
    return {};
  }
}

}  // namespace

TCIMReference TCIMPathParser::ParseText(const std::string& text,
                                        const boost::shared_ptr<ICIMNamespace>& nameSpace) {
  if (!nameSpace) throw TVYRException(TVYRStatusCode::kNotFound);
  return TCIMPathParser(Locate(text), nameSpace, 0).Parse();
}

TCIMPathParser::TCIMPathParser(TLocatedText source,
                               const boost::shared_ptr<ICIMNamespace>& nameSpace, unsigned depth)
    : source_(std::move(source)), nameSpace_(nameSpace), depth_(depth) {}

TCIMReference TCIMPathParser::Parse() {
  SkipSpace();
  SkipNamespace();
  const TToken name = ReadName("a class name");
  const bool hasKeys = Accept('.');
  if (!hasKeys && position_ != source_.text.size()) {
    Fail(GetColumn(), "expected \".\" or the end of the path");
  }
  const boost::shared_ptr<ICIMClass> cimClass = FindClass(name);
  TCIMReference path(nameSpace_, {});
  path.SetClass(cimClass);
  if (hasKeys) ParseKeys(cimClass, path);
  return path;
}

// Paths of other repositories begin with where these are: a namespace and ":", and before it "//",
// a host and "/", and before that the name of a protocol and ":".
void TCIMPathParser::SkipNamespace() {
  const std::string& text = source_.text;
  std::size_t host = position_;
  while (host < text.size() && IsNamePart(text[host])) ++host;
  if (host > position_ && text.compare(host, 1, ":") == 0) ++host;
  const bool hasHost = text.compare(host, 2, "//") == 0;
  const std::size_t start = hasHost ? std::min(text.find('/', host + 2), text.size()) : position_;
  const std::size_t colon = text.find(':', start);
  if (colon < text.find_first_of(".=\"", start)) {
    position_ = colon + 1;
  } else if (hasHost) {
    Fail(GetColumn(), "expected a namespace and \":\" after the host");
  }
}

boost::shared_ptr<ICIMClass> TCIMPathParser::FindClass(const TToken& name) const {
  const std::string& className = name.content.text;
  try {
    if (auto cimClass = nameSpace_->GetClass(className, {})) return cimClass;
    throw TVYRException(TVYRStatusCode::kNotFound);
  } catch (const TVYRException& exception) {
    if (depth_ == 0 || exception.GetStatusCode() != TVYRStatusCode::kNotFound) throw;
  }
  Fail(name.column, "there is no class " + QuoteText(className));
}

void TCIMPathParser::ParseKeys(const boost::shared_ptr<ICIMClass>& cimClass, TCIMReference& path) {
  std::set<std::string> seen;
  do {
    const TToken name = ReadName("a key name");
    const TKey key = FindKey(cimClass, name);
    if (!seen.insert(key.name).second) {
      Fail(name.column, "key " + QuoteText(key.name) + " is given twice");
    }
    if (!Accept('=')) Fail(GetColumn(), "expected \"=\" after key " + QuoteText(key.name));
    path.AddKeyValue(key.name, ReadValue(key, ReadValueToken()));
  } while (Accept(','));
  if (position_ != source_.text.size()) Fail(GetColumn(), "expected \",\" or the end of the path");
}

TCIMPathParser::TKey TCIMPathParser::FindKey(const boost::shared_ptr<ICIMClass>& cimClass,
                                             const TToken& name) {
  const std::string& givenName = name.content.text;
  const auto declaration = FindPropertyDecl(cimClass, givenName);
  const std::string className = QuoteText(cimClass->GetName({}));
  if (!declaration) Fail(name.column, "class " + className + " has no key " + QuoteText(givenName));
  const std::string declaredName = DeclaredKeyName(cimClass, givenName);
  if (declaredName.empty()) {
    Fail(name.column, "property " + QuoteText(givenName) + " of class " + className + " is no key");
  }
  return {declaredName, declaration->GetType({})};
}

void TCIMPathParser::SkipSpace() {
  while (position_ < source_.text.size() && IsSpace(source_.text[position_])) ++position_;
}

bool TCIMPathParser::Accept(char character) {
  SkipSpace();
  if (position_ == source_.text.size() || source_.text[position_] != character) return false;
  ++position_;
  return true;
}

TCIMPathParser::TToken TCIMPathParser::ReadName(const char* what) {
  SkipSpace();
  const std::size_t start = position_;
  const std::string& text = source_.text;
  if (start == text.size() || !IsNameStart(text[start])) {
    Fail(GetColumn(), std::string("expected ") + what);
  }
  while (position_ < text.size() && IsNamePart(text[position_])) ++position_;
  TToken token;
  token.column = source_.columns[start];
  token.content.text = text.substr(start, position_ - start);
  SkipSpace();
  return token;
}

TCIMPathParser::TToken TCIMPathParser::ReadValueToken() {
  SkipSpace();
  const std::size_t column = GetColumn();
  const bool isQuoted = position_ < source_.text.size() && source_.text[position_] == '"';
  TToken token = isQuoted ? ReadQuoted() : ReadBare();
  token.column = column;
  token.isQuoted = isQuoted;
  SkipSpace();
  return token;
}

TCIMPathParser::TToken TCIMPathParser::ReadQuoted() {
  const std::size_t openingColumn = GetColumn();
  const std::string& text = source_.text;
  TToken token;
  for (++position_; position_ < text.size() && text[position_] != '"'; ++position_) {
    const std::size_t column = GetColumn();
    if (text[position_] == '\\') {
      ++position_;
      if (position_ == text.size()) break;
      if (text[position_] != '"' && text[position_] != '\\') {
        Fail(column, "unknown escape; only \\\" and \\\\ are known");
      }
    }
    token.content.text += text[position_];
    token.content.columns.push_back(column);
  }
  if (position_ == text.size()) Fail(openingColumn, "the quoted text does not end");
  token.content.columns.push_back(GetColumn());
  ++position_;
  return token;
}

TCIMPathParser::TToken TCIMPathParser::ReadBare() {
  const std::size_t start = position_;
  const std::string& text = source_.text;
  while (position_ < text.size() && text[position_] != ',' && !IsSpace(text[position_])) {
    ++position_;
  }
  if (position_ == start) Fail(GetColumn(), "expected a value");
  TToken token;
  token.content.text = text.substr(start, position_ - start);
  return token;
}

TCIMValue TCIMPathParser::ReadValue(const TKey& key, const TToken& token) const {
  const std::string& text = token.content.text;
  if (!token.isQuoted && FoldName(text) == "null") return TCIMValue::Null(key.type);
  if (token.isQuoted && key.type == TCIMValue::TCIMType::kReference) return ReadReference(token);
  try {
    return token.isQuoted ? ReadQuotedKeyValue(key.type, text) : ReadBareKeyValue(key.type, text);
  } catch (const std::invalid_argument& error) {
    Fail(token.column, "key " + QuoteText(key.name) + ": " + error.what());
  }
}

TCIMValue TCIMPathParser::ReadReference(const TToken& token) const {
  if (depth_ == kMaxDepth) {
    Fail(token.column, "paths nest deeper than " + std::to_string(kMaxDepth) + " levels");
  }
  return TCIMPathParser(token.content, nameSpace_, depth_ + 1).Parse();
}

}  // namespace NZELVYR20
