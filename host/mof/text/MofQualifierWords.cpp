#include "MofQualifierWords.h"

#include "FoldName.h"

namespace NZELVYR20 {
namespace {

using D = ICIMQualifierDecl;

struct TScopeWord {
  const char* word;
  D::EScope scope;
};

constexpr TScopeWord kScopeWords[] = {
    {"schema", D::kSchema},         {"class", D::kClass},         {"association", D::kAssociation},
    {"indication", D::kIndication}, {"property", D::kProperty},   {"reference", D::kReference},
    {"method", D::kMethod},         {"parameter", D::kParameter},
};

struct TFlavorWords {
  D::EFlavor flavor;
  const char* on;
  const char* off;  ///< empty where there is no such word
};

constexpr TFlavorWords kFlavorWords[] = {
    {D::kOverridable, "EnableOverride", "DisableOverride"},
    {D::kToSubclass, "ToSubclass", "Restricted"},
    {D::kTranslatable, "Translatable", ""},
};

}  // namespace

std::optional<D::EScope> FindMofScope(const std::string& word) {
  const std::string folded = FoldName(word);
  for (const TScopeWord& entry : kScopeWords) {
    if (folded == entry.word) return entry.scope;
  }
  if (folded == "any") return D::kAny;
  if (folded == "qualifier") return D::kNoScope;
  return {};
}

std::optional<TMofFlavorWord> FindMofFlavor(const std::string& word) {
  const std::string folded = FoldName(word);
  for (const TFlavorWords& entry : kFlavorWords) {
    if (folded == FoldName(entry.on)) return TMofFlavorWord{entry.flavor, true};
    if (!folded.empty() && folded == FoldName(entry.off)) {
      return TMofFlavorWord{entry.flavor, false};
    }
  }
  return {};
}

std::vector<std::string> GetMofScopeWords(D::EScope scope) {
  if (scope == D::kAny) return {"any"};
  std::vector<std::string> words;
  for (const TScopeWord& entry : kScopeWords) {
    if ((scope & entry.scope) != 0) words.emplace_back(entry.word);
  }
  return words;
}

std::vector<std::string> GetMofFlavorWords(unsigned flavor, unsigned which) {
  std::vector<std::string> words;
  for (const TFlavorWords& entry : kFlavorWords) {
    if ((which & entry.flavor) == 0) continue;
    const std::string word = (flavor & entry.flavor) != 0 ? entry.on : entry.off;
    if (!word.empty()) words.push_back(word);
  }
  return words;
}

}  // namespace NZELVYR20
