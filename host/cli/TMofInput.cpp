#include "TMofInput.h"

#include <optional>
#include <string>
#include <vector>

#include "TCommandError.h"
#include "TMofLoader.h"
#include "TProgramFolder.h"
#include "TProgressLine.h"
#include "TScopedSilence.h"
#include "TStandardStreams.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

const std::string kSchema = "schema/vyr.mof";

std::string FindSchema() {
  const auto file = TProgramFolder::Find({kSchema, "../share/vyr/" + kSchema});
  if (!file) throw TCommandError(kSchema + ": neither beside the program nor in ../share/vyr");
  return *file;
}

/// False when a strict load stopped.
bool Load(TMofLoader& loader, const std::vector<std::string>& files) {
  try {
    for (const std::string& file : files) loader.Read(file);
    loader.Enter();
    return true;
  } catch (const TMofStrictStop&) {
    return false;
  }
}

std::string ProgressText(const char* what, std::size_t done, std::size_t all) {
  return std::string("MOF ") + what + " " + std::to_string(done) +
         (all == 0 ? "" : " of " + std::to_string(all));
}

bool IsWhole(const TMofSummary& summary) { return summary.errors == 0 && summary.refusals.empty(); }

void ReportSummary(const TMofSummary& summary, bool isQuiet) {
  if (!isQuiet && (!IsWhole(summary) || TStandardStreams::IsErrorTerminal())) {
    TStandardStreams::WriteErrorLines("MOF: " + summary.ToString());
  }
}

}  // namespace

void TMofInput::LoadSchema(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                           const THostOptions& options) {
  const std::string file = FindSchema();
  TMofOptions mofOptions;
  mofOptions.isStrict = true;
  mofOptions.isQuiet = true;
  mofOptions.referenceClasses = options.mofOptions.referenceClasses;
  std::string wrong;
  TMofLoader loader(nameSpace, mofOptions, [&wrong](const std::string& message) {
    wrong = message.substr(0, message.find('\n'));
  });
  try {
    if (!Load(loader, {file}) || !IsWhole(loader.GetSummary())) {
      throw TCommandError("cannot load the schema " + file + ": " + wrong);
    }
  } catch (const TVYRException& error) {
    throw TCommandError("cannot load the schema " + file + ": " + error.what());
  }
}

bool TMofInput::LoadFiles(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                          const THostOptions& options) {
  if (options.mofFiles.empty()) return true;
  TMofOptions mofOptions = options.mofOptions;
  mofOptions.isQuiet = options.isQuiet;
  // The loader says, with their places, what the repository logs; only who asks gets both.
  std::optional<TScopedSilence> silence;
  if (!options.logLevel) silence.emplace();
  TProgressLine line;
  TMofLoader loader(
      nameSpace, mofOptions,
      [&line](const std::string& message) {
        line.Clear();
        TStandardStreams::WriteErrorLines(message);
      },
      [&line](const char* what, std::size_t done, std::size_t all) {
        line.Show(ProgressText(what, done, all));
      });
  if (!Load(loader, options.mofFiles)) {
    line.Clear();
    throw TCommandError("--strict: stopped at the first error");
  }
  line.Clear();
  const TMofSummary summary = loader.GetSummary();
  ReportSummary(summary, options.isQuiet);
  return IsWhole(summary);
}

}  // namespace NZELVYR20
