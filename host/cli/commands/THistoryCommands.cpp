#include "THistoryCommands.h"

#include <chrono>
#include <ctime>
#include <limits>
#include <vector>

#include "CompareNamespaces.h"
#include "ListElements.h"
#include "OpenNamespace.h"
#include "TChangeText.h"
#include "TCommandError.h"
#include "TFileReplacement.h"
#include "TMofInput.h"
#include "TNoteReport.h"
#include "TOutput.h"
#include "TPause.h"
#include "TRepository.h"
#include "TStandardStreams.h"
#include "TText.h"
#include "TWatch.h"
#include "UtcTimeText.h"
#include "WriteSnapshot.h"

namespace NZELVYR20 {
namespace {

using TNamespacePtr = boost::shared_ptr<ICIMNamespace>;

constexpr int kDifferent = 3;

/// A snapshot in a namespace of its own. What is left of a damaged one would compare as changes.
TNamespacePtr Load(const std::string& file, const THostOptions& options) {
  THostOptions own = options;
  own.isQuiet = true;
  own.mofFiles = {file};
  own.mofOptions.largestFile = std::numeric_limits<std::size_t>::max();
  auto nameSpace = OpenNamespace(options.plugin);
  if (!TMofInput::LoadFiles(nameSpace, own)) {
    throw TCommandError(file + ": not all of it can be read, so that nothing is compared");
  }
  return nameSpace;
}

TWriteText WriterOf(const TCommandContext& context) {
  return context.options.isQuiet ? [](const std::string&) {} : context.write;
}

/// The rounds of a watch, in which what could not be read is told when it changes.
class TWatchRounds {
 public:
  TWatchRounds(const TCommandContext& context, const TWatchArguments& arguments)
      : context_(context),
        text_(context.terminal, arguments.withMomentary),
        present_(context.options),
        watch_(context.nameSpace, present_.GetNamespace(), [this] { present_.Collect(); }) {
    Report(context.repository->TakeNotes());
  }

  void Run() {
    watch_.Round(text_, UtcTimeText(std::time(nullptr)) + ' ', context_.write);
    context_.flush();
    Report(present_.GetNotes());
  }

 private:
  void Report(const std::vector<TCollectorNote>& notes) {
    if (context_.options.isQuiet) return;
    for (const std::string& line : notes_.Update(notes)) TStandardStreams::WriteErrorLine(line);
  }

  const TCommandContext& context_;
  TChangeText text_;
  TRepository present_;
  TWatch watch_;
  TNoteReport notes_;
};

void Announce(const TCommandContext& context, double seconds) {
  if (context.options.isQuiet || !TStandardStreams::IsErrorTerminal()) return;
  const std::size_t count = ListInstances(*context.nameSpace->GetClass("", {}), true).size();
  TStandardStreams::WriteErrorLine("vyrhost: watching " + TText::Count(count, "instance") +
                                   ", every " + TCIMValue(seconds).ToString(10) +
                                   " s; ends with Ctrl-C");
}

}  // namespace

int THistoryCommands::Snapshot(const TCommandContext& context, const std::string& file) {
  const auto write = [&context](const TWriteText& writeText) {
    WriteSnapshot(context.nameSpace, *context.options.mofOptions.referenceClasses,
                  std::time(nullptr), writeText);
  };
  if (file == "-") {
    write(context.write);
    return 0;
  }
  TFileReplacement replacement(file);
  write([&replacement](const std::string& text) { replacement.Write(text); });
  replacement.Finish();
  return 0;
}

int THistoryCommands::Diff(const TCommandContext& context, const TDiffArguments& arguments) {
  const TNamespacePtr before = Load(arguments.oldFile, context.options);
  const TNamespacePtr after =
      arguments.newFile.empty() ? context.nameSpace : Load(arguments.newFile, context.options);
  const TComparison comparison = CompareNamespaces(*before, *after, EMatch::kWithinMachine);
  const TChangeText text(context.terminal, arguments.withMomentary);
  return text.WriteBlocks(comparison, WriterOf(context)) ? kDifferent : 0;
}

int THistoryCommands::Watch(const TCommandContext& context, const TWatchArguments& arguments) {
  using TDuration = TPause::TClock::duration;
  const auto interval =
      std::chrono::duration_cast<TDuration>(std::chrono::duration<double>(arguments.seconds));
  const TPause pause;
  TWatchRounds rounds(context, arguments);
  Announce(context, arguments.seconds);
  auto next = TPause::TClock::now();
  for (unsigned round = 0; round != arguments.rounds; ++round) {
    next = std::max(next + interval, TPause::TClock::now());
    const TPause::EEnd end = pause.Until(next);
    if (end == TPause::EEnd::kSignal) break;
    if (end == TPause::EEnd::kNoReader) throw TReaderGone();
    rounds.Run();
  }
  return 0;
}

}  // namespace NZELVYR20
