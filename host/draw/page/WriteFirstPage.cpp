#include "WriteFirstPage.h"

#include <algorithm>
#include <boost/algorithm/string/replace.hpp>
#include <string>
#include <vector>

#include "TInventory.h"
#include "TMachineTree.h"
#include "TTable.h"
#include "TText.h"
#include "TTreeLines.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kMostNotes = 2;

/// As a shell wants it.
std::string Quote(const std::string& word) {
  const auto isPlain = [](char letter) {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') ||
           std::string("_-:./").find(letter) != std::string::npos;
  };
  if (!word.empty() && std::all_of(word.begin(), word.end(), isPlain)) return word;
  return '\'' + boost::replace_all_copy(word, "'", "'\\''") + '\'';
}

class TPage {
 public:
  TPage(const TTerminal& terminal, const TWriteText& write) : terminal_(terminal), write_(write) {}

  void Add(const std::string& line) const {
    write_((terminal_.isTerminal ? TText::Cut(line, terminal_.width, Ellipsis(terminal_)) : line) +
           '\n');
  }

  void AddNotes(const std::vector<std::string>& notes) const {
    if (notes.empty()) return;
    Add(TText::Count(notes.size(), "thing") + " could not be read" +
        (notes.size() > kMostNotes ? ", such as:" : ":"));
    for (std::size_t i = 0; i < std::min(notes.size(), kMostNotes); ++i) {
      Add("  " + TText::OneLine(notes[i]));
    }
  }

 private:
  const TTerminal& terminal_;
  const TWriteText& write_;
};

std::string CommandsText(const std::vector<std::string>& command, const std::string& subject,
                         bool isEmpty) {
  TTable table(2);
  std::vector<std::string> words(command.size());
  std::transform(command.begin(), command.end(), words.begin(), Quote);
  const std::string program = TText::Join(words, " ");
  if (subject.empty()) {
    table.AddRow({program + " classes --tree", "the classes that there are"});
  } else {
    table.AddRow({program + " tree " + Quote(subject), "what hangs on it"});
  }
  if (isEmpty) {
    table.AddRow({program + " --mof FILE", "with the instances of a file"});
    table.AddRow({program + " --help", "all commands and options"});
  } else {
    table.AddRow({program + " graph --format svg >all.svg", "a picture of everything"});
    table.AddRow({program + " all", "everything, class by class"});
  }
  return table.ToString();
}

}  // namespace

void WriteFirstPage(ICIMNamespace& nameSpace, const TFirstPageFacts& facts,
                    const TTerminal& terminal, const TWriteText& write) {
  TInventory inventory(nameSpace);
  TMachineTree tree(inventory, terminal);
  const TPage page(terminal, write);
  const std::string count = inventory.CountAll();
  if (!count.empty()) {
    DrawTreeLines(tree.Make(), terminal, write);
    page.Add("");
  }
  page.Add(count.empty() ? "There are no instances." : count + ".");
  page.AddNotes(facts.notes);
  page.Add("");
  write(CommandsText(facts.command, tree.GetSubject(), count.empty()));
}

}  // namespace NZELVYR20
