#include "Urls.h"

#include <string_view>

#include "TPrinter.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kLongestUrl = 7000;

bool StaysInUrl(char letter) {
  return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
         (letter >= '0' && letter <= '9') ||
         std::string_view("-._~").find(letter) != std::string_view::npos;
}

std::string Encode(const std::string& text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string encoded;
  for (const char letter : text) {
    if (StaysInUrl(letter)) {
      encoded += letter;
      continue;
    }
    const auto byte = static_cast<unsigned char>(letter);
    encoded += {'%', kDigits[byte / 16], kDigits[byte % 16]};
  }
  return encoded;
}

}  // namespace

std::string MakeUrl(const std::string& path, const TUrlQuery& query) {
  std::string url = path;
  char separator = '?';
  for (const auto& [name, value] : query) {
    if (value.empty()) continue;
    url += separator + name + '=' + Encode(value);
    separator = '&';
  }
  return url;
}

std::string ClassUrl(const std::string& className) { return "/class/" + Encode(className); }

std::string InstancesUrl(const std::string& className, const TUrlQuery& query) {
  return MakeUrl(ClassUrl(className) + "/instances", query);
}

std::string InstanceUrl(const ICIMInstance& instance) {
  std::string url = MakeUrl("/instance", {{"path", TPrinter::PathText(instance)}});
  return url.size() > kLongestUrl ? std::string() : url;
}

}  // namespace NZELVYR20
