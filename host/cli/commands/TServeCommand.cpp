#include "TServeCommand.h"

#include <malloc.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <optional>
#include <string>
#include <system_error>
#include <thread>

#include "DropPrivileges.h"
#include "TCommandError.h"
#include "TMofInput.h"
#include "TNoteReport.h"
#include "TPause.h"
#include "TRepository.h"
#include "TServer.h"
#include "TStandardStreams.h"
#include "TWatch.h"

namespace NZELVYR20 {
namespace {

constexpr double kUsualSeconds = 60;

/// Whether all that is served comes from the machine, so that it can be collected anew.
bool IsMachineAlone(const THostOptions& options) {
  return !options.isEmpty && options.mofFiles.empty();
}

double GetSeconds(const THostOptions& options, const TServeArguments& arguments) {
  if (IsMachineAlone(options)) return arguments.seconds.value_or(kUsualSeconds);
  if (arguments.seconds.value_or(0) > 0) {
    throw TUsageError("serve: with --empty and --mof nothing is collected anew, so no --every",
                      "vyrhost serve --help");
  }
  return 0;
}

/// The collectors would report every single file of a root that is closed from then on.
void GiveUpPrivileges(const TServeArguments& arguments, const std::string& root) {
  if (geteuid() == 0) {
    if (!arguments.keepsPrivileges) DropPrivileges(arguments.user.value_or("nobody"));
  } else if (arguments.user) {
    throw TCommandError("--user: only root can become another user");
  }
  if (access(root.c_str(), R_OK | X_OK) != 0) {
    throw TCommandError("--root \"" + root +
                        "\" without root's privileges: " + std::generic_category().message(errno));
  }
}

/// What is served. Everything is read without root's privileges, so that no later collection knows
/// less than the first, and nobody learns here what he may not read himself.
class TServed {
 public:
  TServed(const TCommandContext& context, const TServeArguments& arguments)
      : options_(context.options),
        seconds_(GetSeconds(options_, arguments)),
        kept_(options_),
        server_(arguments.server) {
    if (seconds_ > 0) present_.emplace(options_);
    GiveUpPrivileges(arguments, options_.root);
    if (!options_.isEmpty) kept_.Collect();
    Report(kept_.GetNotes());
    if (!TMofInput::LoadFiles(kept_.GetNamespace(), options_)) status_ = 1;
  }

  int Run() {
    const TPause pause;  // before the threads, which inherit that signals are for this one
    server_.Attach(kept_.GetNamespace());
    std::thread network([this] {
      if (!server_.Run()) {
        status_ = 1;
        kill(getpid(), SIGTERM);
      }
    });
    TStandardStreams::WriteErrorLine("vyrhost: serving " + kept_.GetOrigin().machine + " at " +
                                     server_.GetAddress());
    try {
      Keep(pause);
    } catch (const std::exception&) {
      End(network);
      throw;
    }
    End(network);
    return status_;
  }

 private:
  void End(std::thread& network) {
    server_.Stop();
    network.join();
  }

  /// Until a signal comes.
  void Keep(const TPause& pause) {
    using TClock = TPause::TClock;
    const auto interval =
        std::chrono::duration_cast<TClock::duration>(std::chrono::duration<double>(seconds_));
    std::optional<TWatch> watch;
    if (present_) {
      watch.emplace(kept_.GetNamespace(), present_->GetNamespace(),
                    [this] { present_->Collect(); });
    }
    for (auto next = TClock::now();;) {
      next = watch ? std::max(next + interval, TClock::now()) : TClock::time_point::max();
      if (pause.Until(next, TPause::EReader::kIgnored) == TPause::EEnd::kSignal) return;
      watch->Look();
      server_.WithoutRequests([&watch] { watch->Update([](const TComparison&) {}); });
      Report(present_->GetNotes());
    }
  }

  void Report(const std::vector<TCollectorNote>& notes) {
    if (options_.isQuiet) return;
    for (const std::string& line : notes_.Update(notes)) TStandardStreams::WriteErrorLine(line);
  }

  const THostOptions& options_;
  double seconds_;
  TRepository kept_;
  std::optional<TRepository> present_;
  TServer server_;
  TNoteReport notes_;
  std::atomic<int> status_{0};
};

}  // namespace

int TServeCommand::Run(const TCommandContext& context, const TServeArguments& arguments) {
  // One request is answered at a time: memory of its own for each thread would only be kept idle.
  mallopt(M_ARENA_MAX, 1);
  return TServed(context, arguments).Run();
}

}  // namespace NZELVYR20
