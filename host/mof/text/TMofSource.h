#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// A place in a text as people count: both from 1, columns in characters.
struct TMofPosition {
  std::size_t line = 1;
  std::size_t column = 1;
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

  /// The position of a byte; one after the end is that of the end.
  TMofPosition Locate(std::size_t offset) const;
  /// The line in which a byte stands, without its end.
  std::string GetLine(std::size_t offset) const;

 private:
  const std::vector<std::size_t>& GetLineStarts() const;

  std::string name_;
  std::string text_;
  mutable std::vector<std::size_t> lineStarts_;  ///< empty until something is located
};

/// A byte of a source. Without a source it is nowhere: what is said of it is said of the whole.
struct TMofPlace {
  const TMofSource* source = nullptr;
  std::size_t offset = 0;
};

}  // namespace NZELVYR20
