#include "PrintFirstPage.h"

#include <string>
#include <vector>

#include "TRepository.h"
#include "WriteFirstPage.h"

namespace NZELVYR20 {

int PrintFirstPage(const TCommandContext& context) {
  std::vector<std::string> notes;
  if (!context.options.isQuiet) {
    for (const auto& note : context.repository->TakeNotes()) notes.push_back(note.ToString());
  }
  WriteFirstPage(*context.nameSpace, notes, context.terminal, context.write);
  return 0;
}

}  // namespace NZELVYR20
