#pragma once

#include <string>

#include "CompareNamespaces.h"
#include "TTerminal.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// Changes in words, in display text.
class TChangeText {
 public:
  /// `withMomentary`: also the values that change by nature.
  TChangeText(const TTerminal& terminal, bool withMomentary)
      : arrow_(terminal.isUnicode ? " \u2192 " : " -> "), withMomentary_(withMomentary) {}

  /// The remarks, then each instance with its changed properties below it. False where there is
  /// nothing to write.
  bool WriteBlocks(const TComparison& comparison, const TWriteText& write) const;

  /// The same with a line for each changed property, which names the instance. Every line begins
  /// with `lead`.
  void WriteLines(const TComparison& comparison, const std::string& lead,
                  const TWriteText& write) const;

 private:
  std::vector<std::string> ListProperties(const TInstanceChange& change) const;
  std::string PropertyText(const TPropertyChange& change) const;

  std::string arrow_;
  bool withMomentary_;
};

}  // namespace NZELVYR20
