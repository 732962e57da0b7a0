#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "TFaults.h"
#include "TProgram.h"

namespace NZELVYR20 {
namespace {

using EKind = TFaults::EKind;

const char* const kModel = DATA_DIR "/racks.mof";

struct TRun {
  int status;
  long leaked;
  std::string output, errors;

  bool operator==(const TRun& other) const {
    return status == other.status && output == other.output && errors == other.errors;
  }
};

/// Whole commands of the program, in this process, on a repository made of a text, into the loaded
/// plug-in and out of it.
class TProgramFaultTest : public ::testing::Test {
 protected:
  /// Runs the command with the n-th event of the kind failing; tells whether it came to that. In a
  /// thread of its own, for which the plug-in has what threads have each for themselves to make.
  bool Run(const std::vector<std::string>& command, EKind kind, int n) {
    std::vector<std::string> words = {"vyrhost", "--empty", "--plugin", INMEM_PLUGIN_PATH,
                                      "--mof",   kModel,    "--quiet"};
    words.insert(words.end(), command.begin(), command.end());
    std::vector<char*> argv(words.size());
    std::transform(words.begin(), words.end(), argv.begin(),
                   [](auto& word) { return word.data(); });
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    const long before = TFaults::CountLiveAllocations();
    bool isStruck = false;
    std::thread([&] {
      TFaults::Arm(kind, n);
      run_.status = TProgram::Run(static_cast<int>(argv.size()), argv.data());
      isStruck = TFaults::Disarm();
    }).join();
    run_.leaked = TFaults::CountLiveAllocations() - before;
    run_.output = ::testing::internal::GetCapturedStdout();
    run_.errors = ::testing::internal::GetCapturedStderr();
    return isStruck;
  }

  TRun run_{};
};

TEST_F(TProgramFaultTest, ACommandFailsAloudOrTellsEverything) {
  // What all do before is tried with the first two: the program's start, and loading the model.
  constexpr std::size_t kFirst = 2;
  constexpr int kOwnPart = 100;
  const auto folder = std::filesystem::path(::testing::TempDir()) / "vyr_fault_test";
  std::filesystem::create_directory(folder);
  const std::string path = "MY_Rack.TagOfTheRack=\"the first of the racks\"";
  const std::vector<std::vector<std::string>> commands = {
      {"showing"},
      {"instances", "MY_Rack"},
      {"show", "MY_Rack"},
      {"classes", "--tree"},
      {"instances", "MY_Rack", "--short"},
      {"show", "MY_Rack:THE FIRST OF THE RACKS"},
      {"associators", path},
      {"show", path},
      {"references", path},
      {"class", "MY_RackOfTheHall"},
      {"tree", path},
      {"graph"},
      {"graph", "MY_Rack", "--format", "mermaid"},
      {},
      {"all"},
      {"show", path, "--json"},
      {"instances", "MY_Rack", "--sort", "-Power", "--format", "table"},
      {"--format", "csv"},
      {"--format", "json"},
      {"mof"},
      {"sql", "SELECT path, display(path, 'TagOfTheRack') FROM MY_Rack"},
      {"diff", DATA_DIR "/earlier.mof", "--quiet=false"},
      {"snapshot", folder / "snapshot"},
      {"sql", "--save", folder / "database"},
  };
  std::map<EKind, int> common;
  for (std::size_t index = 0; index < commands.size(); ++index) {
    const auto& command = commands[index];
    SCOPED_TRACE(::testing::PrintToString(command));
    Run(command, EKind::kNone, 1);
    Run(command, EKind::kNone, 1);  // by now there is what is made once for the process
    const TRun whole = run_;
    ASSERT_NE(whole.status, 1) << whole.errors;
    for (const EKind kind : {EKind::kNew, EKind::kC, EKind::kMemory}) {
      const int step = TFaults::kStep * (kind == EKind::kMemory ? 5 : 1);
      const int begin = std::max(common[kind] - kOwnPart, 1);
      int n = begin;
      for (; !HasFailure() && Run(command, kind, n); n += step) {
        SCOPED_TRACE("n = " + std::to_string(n));
        EXPECT_EQ(run_.leaked, 0);
        if (run_ == whole) continue;
        EXPECT_EQ(run_.status, 1);
        // Where C has no memory to open a file, the file is what is reported.
        const char* const reason = kind == EKind::kC ? ": error: " : ": error: out of memory\n";
        EXPECT_NE(run_.errors.find(reason), std::string::npos) << run_.errors;
      }
      EXPECT_TRUE(n > begin || (kind == EKind::kC && !TFaults::kHasC));
      if (index < kFirst) common[kind] = n;
    }
  }
  // Nothing is left of what failed.
  EXPECT_EQ(std::filesystem::remove_all(folder), 3U);
  EXPECT_GT(common[EKind::kNew], 1000);
}

}  // namespace
}  // namespace NZELVYR20
