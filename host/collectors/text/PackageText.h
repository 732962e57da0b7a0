#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace NZELVYR20 {

/// A package of software that is installed.
struct TPackageFacts {
  std::string name;
  std::string version;
  std::string architecture;
  std::string maintainer;
  std::string summary;
};

/// The installed ones of /var/lib/dpkg/status.
std::vector<TPackageFacts> ParsePackages(std::string_view text);

/// One of the headers in the database of rpm; nothing where it is damaged, and for the keys that
/// are kept there as if they were packages.
std::optional<TPackageFacts> ParseRpmHeader(std::string_view header);

}  // namespace NZELVYR20
