#include "TProgram.h"

#include <csignal>
#include <exception>
#include <new>
#include <string>
#include <vector>

#include "TCommandError.h"
#include "TCommandLine.h"
#include "TInvocation.h"
#include "TMemoryWatch.h"
#include "TMofInput.h"
#include "TOutput.h"
#include "TRepository.h"
#include "TRootObject.h"
#include "TScopedLogger.h"
#include "TStandardStreams.h"
#include "TText.h"

namespace NZELVYR20 {
namespace {

void Report(const std::string& kind, const std::string& message) {
  TStandardStreams::WriteErrorLine("vyrhost: " + kind + ": " + message);
}

/// Instances of the user's own may refer to the machine's.
bool NeedsMachine(const TInvocation& invocation) {
  const THostOptions& options = invocation.options;
  return !options.isEmpty && (invocation.needs == ENeeds::kInstances || !options.mofFiles.empty());
}

int Perform(const TInvocation& invocation, TRepository* repository, const TMemoryWatch& watch) {
  TOutput output(watch);
  const int status = invocation.command(
      {invocation.options, repository,
       repository ? repository->GetNamespace() : boost::shared_ptr<ICIMNamespace>(),
       [&output](const std::string& text) { output.Write(text); }, [&output] { output.Flush(); },
       TStandardStreams::DescribeOutput()});
  output.Flush();
  return status;
}

int PerformAndReport(const TInvocation& invocation, TRepository& repository,
                     const TMemoryWatch& watch) {
  const int status = Perform(invocation, &repository, watch);
  if (!invocation.options.isQuiet) {
    for (const auto& note : repository.TakeNotes()) Report("note", note.ToString());
  }
  return status;
}

int Execute(const TInvocation& invocation, const TMemoryWatch& watch, TProgram::TLeave leave) {
  if (invocation.options.logLevel) TRootObject::SetLogThreshold(*invocation.options.logLevel);
  const TScopedLogger visibly([](ICoreLogger& earlier, int level, const std::string& message) {
    earlier.Log(level, TText::OneLine(message));
  });
  if (invocation.needs == ENeeds::kNothing) return Perform(invocation, nullptr, watch);
  TRepository repository(invocation.options);
  if (NeedsMachine(invocation)) repository.Collect();
  const bool isWhole = TMofInput::LoadFiles(repository.GetNamespace(), invocation.options);
  const int performed = PerformAndReport(invocation, repository, watch);
  const int status = isWhole ? performed : 1;
  if (leave) leave(status);
  return status;
}

/// Whatever the failure says, a lack of memory is the reason where there was one.
int ExecuteAndReport(int argc, char** argv, TProgram::TLeave leave) {
  const TMemoryWatch watch;
  try {
    return Execute(TCommandLine::Parse(argc, argv), watch, leave);
  } catch (const TReaderGone&) {
    return 1;
  } catch (const TUsageError& error) {
    watch.Check();
    Report("error", error.what());
    TStandardStreams::WriteErrorLine("Try '" + error.GetHelpCommand() + "'.");
    return 2;
  } catch (const std::exception& error) {
    watch.Check();
    Report("error", error.what());
    return 1;
  }
}

}  // namespace

int TProgram::Run(int argc, char** argv, TLeave leave) {
  // A reader that has gone must show as a failed write, which can be told from others.
  std::signal(SIGPIPE, SIG_IGN);
  try {
    return ExecuteAndReport(argc, argv, leave);
  } catch (const std::bad_alloc&) {
    TStandardStreams::WriteErrorText("vyrhost: error: out of memory\n");
    return 1;
  }
}

}  // namespace NZELVYR20
