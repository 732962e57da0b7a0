#pragma once

#include <cstddef>
#include <forward_list>
#include <string>
#include <string_view>
#include <vector>

namespace NZELVYR20 {

/// A place in a text as people count: both from 1, columns in characters.
struct TMofPosition {
  std::size_t line = 1;
  std::size_t column = 1;
};

/// A byte of a source's text, or its end. Without a byte it is nowhere: what is said of it is said
/// of the whole.
struct TMofPlace {
  const char* byte = nullptr;
};

/// The text of one MOF file, in UTF-8, with the name under which messages speak of it. It never
/// changes, and outlives every TMofPlace in it.
class TMofSource {
 public:
  TMofSource(std::string name, std::string text);
  TMofSource(const TMofSource&) = delete;
  TMofSource& operator=(const TMofSource&) = delete;

  const std::string& GetName() const { return name_; }
  const std::string& GetText() const { return text_; }

  TMofPosition Locate(const TMofPlace& place) const;
  /// The line in which a place stands, without its end.
  std::string GetLine(const TMofPlace& place) const;

  /// Keeps what the text means where that is not what stands there, as long as the text.
  std::string_view Keep(const std::string& meaning) const;

 private:
  const std::vector<std::size_t>& GetLineStarts() const;

  std::string name_;
  std::string text_;
  mutable std::vector<std::size_t> lineStarts_;  ///< empty until something is located
  mutable std::forward_list<std::string> meanings_;
};

}  // namespace NZELVYR20
