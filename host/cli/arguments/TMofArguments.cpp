#include "TMofArguments.h"

#include <cstddef>
#include <string>
#include <vector>

namespace NZELVYR20 {
namespace {

constexpr std::size_t kMebibyte = std::size_t{1024} * 1024;
/// The largest number of them that a size has room for on a machine of 32 bits.
constexpr std::size_t kMostMebibytes = 4095;
constexpr std::size_t kDeepestInclude = 10000;
constexpr std::size_t kMostReports = 1000000;

/// One value each time that the option is given; all of them count, in order.
void AddList(CLI::App& app, const std::string& name, std::vector<std::string>& values,
             const std::string& help, const std::string& typeName) {
  app.add_option(name, values, help)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->expected(1)
      ->allow_extra_args(false)
      ->type_name(typeName);
}

void AddRange(CLI::Option* option, std::size_t least, std::size_t most) {
  option->check(CLI::Range(least, most).description(""));
}

void AddLimits(CLI::App& app, TMofOptions& options) {
  AddRange(app.add_option("--max-errors", options.reportLimit,
                          "How many errors, warnings and notes to print (default: 20 of each)")
               ->type_name("N"),
           0, kMostReports);
  AddRange(app.add_option_function<std::size_t>(
                  "--max-file-size",
                  [&options](std::size_t size) { options.largestFile = size * kMebibyte; },
                  "The largest file that is read (default: 64)")
               ->type_name("MIB"),
           1, kMostMebibytes);
  AddRange(app.add_option("--max-include-depth", options.deepestInclude,
                          "How deep files may include one another (default: 64)")
               ->type_name("N"),
           1, kDeepestInclude);
}

}  // namespace

void TMofArguments::AddTo(CLI::App& app, THostOptions& options) {
  app.option_defaults()->group("MOF options");
  AddList(app, "--mof", options.mofFiles,
          "Load a file, or the *.mof files of a folder, after the machine's data", "PATH");
  AddList(app, "--include", options.mofOptions.searchPath,
          "Search a folder for included files and CLASS.mof of missing classes", "DIR");
  app.add_flag("--empty", options.isEmpty, "Start without a schema and without the machine's data");
  app.add_flag("--strict", options.mofOptions.isStrict,
               "Take warnings for errors, and stop at the first");
  AddLimits(app, options.mofOptions);
  app.option_defaults()->group("Options");
}

}  // namespace NZELVYR20
