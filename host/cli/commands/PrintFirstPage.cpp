#include "PrintFirstPage.h"

#include <string>
#include <vector>

#include "TRepository.h"
#include "WriteFirstPage.h"

namespace NZELVYR20 {

namespace {

/// The machine that is shown may be another than this one.
std::vector<std::string> ListCommand(const THostOptions& options) {
  std::vector<std::string> words = {"vyrhost"};
  if (options.root != "/") words.insert(words.end(), {"--root", options.root});
  if (options.isEmpty) words.emplace_back("--empty");
  for (const std::string& file : options.mofFiles) words.insert(words.end(), {"--mof", file});
  return words;
}

}  // namespace

int PrintFirstPage(const TCommandContext& context) {
  TFirstPageFacts facts{{}, ListCommand(context.options)};
  if (!context.options.isQuiet) {
    for (const auto& note : context.repository->TakeNotes()) facts.notes.push_back(note.ToString());
  }
  WriteFirstPage(*context.nameSpace, facts, context.terminal, context.write);
  return 0;
}

}  // namespace NZELVYR20
