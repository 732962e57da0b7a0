#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "IAnswerSink.h"

namespace NZELVYR20 {

/// An attribute of an element; one without a value is not written. The text outlives the object.
struct TXmlAttribute {
  TXmlAttribute(const char* attribute, std::optional<std::string_view> text)
      : name(attribute), value(text) {}

  const char* name;
  std::optional<std::string_view> value;
};

/// Writes XML as clients of every make read it: each element with both of its tags, nothing between
/// elements, characters as they are except those that XML escapes; what it has no form for, bytes
/// that are no UTF-8 among them, becomes U+FFFD. Goes to the sink in pieces.
class TXmlWriter {
 public:
  /// Holds the sink, which outlives the writer.
  explicit TXmlWriter(IAnswerSink& sink);

  /// The declaration with which a document begins.
  void WriteDeclaration();

  /// An element with what `writeContent()` writes in it. Where that throws, the end is left out.
  template <class TWriteContent>
  void WriteElement(const char* name, std::initializer_list<TXmlAttribute> attributes,
                    const TWriteContent& writeContent) {
    WriteStart(name, attributes);
    writeContent();
    WriteEnd(name);
  }
  /// The same without attributes.
  template <class TWriteContent>
  void WriteElement(const char* name, const TWriteContent& writeContent) {
    WriteElement(name, {}, writeContent);
  }
  /// An element in which nothing is.
  void WriteEmpty(const char* name, std::initializer_list<TXmlAttribute> attributes = {});
  /// An element with a text.
  void WriteTextElement(const char* name, std::string_view text);

  /// A text within an element.
  void WriteText(std::string_view text);

  /// Gives the sink what it has not got yet: to be called at the end.
  void Flush();

 private:
  void WriteStart(const char* name, std::initializer_list<TXmlAttribute> attributes);
  void WriteEnd(const char* name);
  void Escape(std::string_view text, bool isAttribute);
  void FlushFull();

  IAnswerSink& sink_;
  std::string buffer_;
};

}  // namespace NZELVYR20
