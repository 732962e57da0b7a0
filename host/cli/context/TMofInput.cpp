#include "TMofInput.h"

#include <optional>
#include <string>

#include "LoadMof.h"
#include "TCommandError.h"
#include "TKitError.h"
#include "TProgressLine.h"
#include "TScopedSilence.h"
#include "TStandardStreams.h"

namespace NZELVYR20 {
namespace {

std::string ProgressText(const char* what, std::size_t done, std::size_t all) {
  return std::string("MOF ") + what + " " + std::to_string(done) +
         (all == 0 ? "" : " of " + std::to_string(all));
}

void ReportSummary(const TMofSummary& summary, bool isQuiet) {
  if (!isQuiet && (!summary.IsWhole() || TStandardStreams::IsErrorTerminal())) {
    TStandardStreams::WriteErrorLines("MOF: " + summary.ToString());
  }
}

}  // namespace

bool TMofInput::LoadFiles(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                          const THostOptions& options) {
  if (options.mofFiles.empty()) return true;
  TMofOptions mofOptions = options.mofOptions;
  mofOptions.isQuiet = options.isQuiet;
  // The loader says, with their places, what the repository logs; only who asks gets both.
  std::optional<TScopedSilence> silence;
  if (!options.logLevel) silence.emplace();
  TProgressLine line;
  const auto report = [&line](const std::string& message) {
    line.Clear();
    TStandardStreams::WriteErrorLines(message);
  };
  const auto show = [&line](const char* what, std::size_t done, std::size_t all) {
    if (line.IsDue()) line.Show(ProgressText(what, done, all));
  };
  TMofSummary summary;
  try {
    summary = LoadMof(nameSpace, options.mofFiles, report, mofOptions, show);
  } catch (const TKitError& stop) {
    line.Clear();
    throw TCommandError(std::string("--strict: ") + stop.what());
  }
  line.Clear();
  ReportSummary(summary, options.isQuiet);
  return summary.IsWhole();
}

}  // namespace NZELVYR20
