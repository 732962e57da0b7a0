#include "TFormatOption.h"

#include <string>
#include <utility>
#include <vector>

namespace NZELVYR20 {
namespace {

const std::vector<std::pair<std::string, EFormat>> kFormats = {{"table", EFormat::kTable},
                                                               {"json", EFormat::kJson},
                                                               {"jsonl", EFormat::kJsonLines},
                                                               {"csv", EFormat::kCsv},
                                                               {"mof", EFormat::kMof}};

}  // namespace

CLI::Option* TFormatOption::AddTo(CLI::App& command, std::optional<EFormat>& format,
                                  const std::string& help, bool withMof) {
  std::vector<std::string> names;
  for (const auto& [name, value] : kFormats) {
    if (withMof || value != EFormat::kMof) names.push_back(name);
  }
  const auto take = [&format](const std::string& given) {
    for (const auto& [name, value] : kFormats) {
      if (name == given) format = value;
    }
  };
  return command.add_option_function<std::string>(kName, take, help)
      ->type_name("FORMAT")
      ->check(CLI::IsMember(names));
}

}  // namespace NZELVYR20
