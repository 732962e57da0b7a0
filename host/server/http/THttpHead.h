#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace NZELVYR20 {

/// A request's first line and headers.
class THttpHead {
 public:
  /// Reads the text up to the empty line. None for what is no such head: whatever can be understood
  /// in two ways is not understood.
  static std::optional<THttpHead> Parse(std::string_view text);

  const std::string& GetMethod() const { return method_; }
  const std::string& GetTarget() const { return target_; }
  /// The target without its query.
  std::string GetPath() const { return target_.substr(0, target_.find('?')); }
  const std::string& GetVersion() const { return version_; }
  /// The authority in the target counts as the header Host.
  std::vector<std::string> GetAll(std::string_view name) const;
  /// The first of these headers.
  std::optional<std::string> Get(std::string_view name) const;
  /// Whether one of the words in these headers, parted by commas, is that one.
  bool HasWord(std::string_view name, std::string_view word) const;

 private:
  bool ParseLine(std::string_view line);
  bool ParseHeader(std::string_view line);
  void TakeAuthority();

  std::string method_;
  std::string target_;
  std::string version_;
  std::vector<std::pair<std::string, std::string>> headers_;
};

}  // namespace NZELVYR20
