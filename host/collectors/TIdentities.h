#pragma once

#include <string>
#include <vector>

#include "TInstanceDraft.h"

namespace NZELVYR20 {

/// What is known of an element and has no property of its own: texts, and what each is.
class TIdentities {
 public:
  /// An empty text is not known, and left out.
  TIdentities& Add(const std::string& what, const std::string& text);

  /// Fills IdentifyingDescriptions and OtherIdentifyingInfo, which stay null where nothing is
  /// known.
  void SetIn(TInstanceDraft& draft) const;

 private:
  std::vector<std::string> kinds_;
  std::vector<std::string> texts_;
};

}  // namespace NZELVYR20
