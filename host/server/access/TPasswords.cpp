#include "TPasswords.h"

#include <crypt.h>
#include <openssl/crypto.h>
#include <openssl/evp.h>

#include <boost/algorithm/string.hpp>
#include <fstream>
#include <memory>
#include <vector>

#include "CheckPrivate.h"
#include "TCommandError.h"

namespace NZELVYR20 {
namespace {

constexpr std::string_view kScheme = "Basic ";

bool IsStrong(const std::string& hash) {
  for (const char* scheme : {"$6$", "$5$", "$y$"}) {
    if (boost::starts_with(hash, scheme)) return true;
  }
  return false;
}

/// In a time that does not depend on where they differ.
bool AreEqual(const std::string& left, const std::string& right) {
  return left.size() == right.size() && CRYPTO_memcmp(left.data(), right.data(), left.size()) == 0;
}

/// Empty for what is no Base64.
std::string Decode(const std::string& text) {
  if (text.empty() || text.size() % 4 != 0) return "";
  std::vector<unsigned char> decoded(text.size());
  const int size =
      EVP_DecodeBlock(decoded.data(), reinterpret_cast<const unsigned char*>(text.data()),
                      static_cast<int>(text.size()));
  if (size < 0) return "";
  const auto padding = static_cast<int>(text.size() - text.find_last_not_of('=') - 1);
  return {decoded.begin(), decoded.begin() + std::max(0, size - padding)};
}

}  // namespace

TPasswords::TPasswords(const std::string& file) {
  CheckPrivate(file);
  std::ifstream stream(file);
  if (!stream) throw TCommandError(file + ": cannot be read");
  int number = 0;
  for (std::string line; std::getline(stream, line);) {
    ++number;
    boost::trim(line);
    if (line.empty() || line[0] == '#') continue;
    const std::size_t colon = line.find(':');
    const std::string hash = colon == std::string::npos ? "" : line.substr(colon + 1);
    if (colon == 0 || !IsStrong(hash)) {
      throw TCommandError(file + ':' + std::to_string(number) +
                          ": not a name and a hash, as openssl passwd -6 makes it");
    }
    hashes_[line.substr(0, colon)] = hash;
  }
  if (hashes_.empty()) throw TCommandError(file + ": names no user");
}

bool TPasswords::Admits(const std::string& authorization) const {
  if (!boost::istarts_with(authorization, kScheme)) return false;
  const std::lock_guard<std::mutex> lock(mutex_);
  if (AreEqual(authorization, admitted_)) return true;
  const std::string decoded = Decode(boost::trim_copy(authorization.substr(kScheme.size())));
  const std::size_t colon = decoded.find(':');
  if (colon == std::string::npos || decoded.find('\0') != std::string::npos) return false;
  if (!IsRight(decoded.substr(0, colon), decoded.substr(colon + 1))) return false;
  admitted_ = authorization;
  return true;
}

bool TPasswords::IsRight(const std::string& user, const std::string& password) const {
  const auto known = hashes_.find(user);
  const std::string& hash = known == hashes_.end() ? hashes_.begin()->second : known->second;
  const auto data = std::make_unique<crypt_data>();  // too large for a stack
  const char* made = crypt_r(password.c_str(), hash.c_str(), data.get());
  return made != nullptr && AreEqual(made, hash) && known != hashes_.end();
}

}  // namespace NZELVYR20
