#pragma once

#include <string>
#include <utility>
#include <vector>

namespace NZELVYR20 {

/// A text of HTML that is XML as well. Whatever is put in comes out as text, never as markup:
/// control characters and bytes that are no UTF-8 are made visible as TText does.
class THtml {
 public:
  /// Names, which are the program's own, with their values.
  using TAttributes = std::vector<std::pair<const char*, std::string>>;

  /// Begins an element that Close() ends.
  void Open(const char* name, const TAttributes& attributes = {});
  /// Ends the innermost element that is open.
  void Close();

  void Text(const std::string& text);
  /// An element with a text.
  void Add(const char* name, const std::string& text, const TAttributes& attributes = {});
  /// One that never has content, such as a line of a picture.
  void AddEmpty(const char* name, const TAttributes& attributes = {});
  /// An empty address makes it mere text.
  void AddLink(const std::string& url, const std::string& text, TAttributes attributes = {});

  /// What was written, with all that is open ended.
  std::string Finish();

 private:
  void Begin(const char* name, const TAttributes& attributes);

  std::string text_;
  std::vector<const char*> open_;
};

}  // namespace NZELVYR20
