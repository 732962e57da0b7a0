#pragma once

#include <istream>
#include <map>

#include "Operations.h"

namespace NZELVYR20 {

inline std::string ValueText(int value) {
  const int at = value % 32;
  const std::string from = std::to_string(value / 32 & 7);
  if (at < kConstants) return TWorld::ValueText(GetConstants()[at]);
  if (at < kReference) return "null reference to c" + from;
  if (at == 28) return "array of a reference to c" + from;
  if (at > 28) return "n" + std::to_string(value / 256) + ": c" + from + (at == 29 ? ".a" : ".b");
  return "reference to i" + from + (at == 27 ? " of the superclass" : "");
}

inline std::string ToText(const TStep& s) {
  const auto quoted = [](const std::string& text) { return '"' + text + '"'; };
  const auto in = [&](const TPool& pool) { return quoted(pool[s.name % pool.size()]); };
  const auto maybe = [&](const TPool& pool, int at) { return quoted(TWorld::Maybe(pool, at)); };
  const std::map<char, std::string> fields = {
      {'a', std::to_string(s.a)},
      {'b', std::to_string(s.b)},
      {'n', std::to_string(s.name & 7)},
      {'f', std::to_string(s.flag)},
      {'F', std::to_string(s.flag & 7)},
      {'N', "n" + std::to_string(s.space)},
      {'V', ValueText(s.value)},
      {'C', in(kClasses)},
      {'P', in(kProperties)},
      {'M', in(kMethods)},
      {'Q', in(kQualifiers)},
      {'E', std::string(1, "cdm"[s.b % 3]) + std::to_string(s.a)},
      {'1', maybe(kClasses, s.name)},
      {'2', maybe(kProperties, s.value)},
      {'3', quoted(kClasses[s.a * s.a / 8])},
      {'4', maybe(kProperties, s.flag)}};
  std::string text;
  for (const char* at = kOperations[s.operation].pattern; *at != 0; ++at) {
    text += *at == '@' ? fields.at(*++at) : std::string(1, *at);
  }
  if (s.inner > 0) text += " doing the next " + std::to_string(s.inner);
  return text + (s.fault == 0 ? "" : " with fault " + std::to_string(s.fault));
}

/// The script in words; what stands after the hash is what ReadScript reads back.
inline std::string ToText(const TScript& script) {
  std::ostringstream text;
  for (const TStep& s : script) {
    text << ToText(s) << "  #";
    for (const int number : {s.operation, s.a, s.b, s.name, s.value, s.flag, s.space, s.inner}) {
      text << ' ' << number;
    }
    text << ' ' << s.fault << '\n';
  }
  return text.str();
}

inline TScript ReadScript(std::istream& file) {
  TScript script;
  for (std::string line; std::getline(file, line);) {
    if (line.rfind('#') == std::string::npos) continue;
    std::istringstream numbers(line.substr(line.rfind('#') + 1));
    TStep s{};
    for (int* number :
         {&s.operation, &s.a, &s.b, &s.name, &s.value, &s.flag, &s.space, &s.inner, &s.fault}) {
      numbers >> *number;
    }
    if (numbers) script.push_back(s);
  }
  return script;
}

}  // namespace NZELVYR20
