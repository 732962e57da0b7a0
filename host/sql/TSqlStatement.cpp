#include "TSqlStatement.h"

#include <set>
#include <string>

#include "FoldName.h"
#include "SqlValue.h"
#include "TSqlDatabase.h"

namespace NZELVYR20 {
namespace {

/// The name, with a number where it was given already.
std::string UniqueName(const std::string& name, std::set<std::string>& given) {
  std::string unique = name;
  for (int number = 1; !given.insert(FoldName(unique)).second; ++number) {
    unique = name + ':' + std::to_string(number);
  }
  return unique;
}

}  // namespace

struct TSqlStatement::TParts {
  explicit TParts(const boost::shared_ptr<ICIMNamespace>& nameSpace) : database(nameSpace) {}

  TSqlDatabase database;
  TSqlCompiled compiled{nullptr, sqlite3_finalize};
};

TSqlStatement::TSqlStatement(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                             const std::string& text)
    : parts_(std::make_unique<TParts>(nameSpace)) {
  parts_->database.Protect();
  parts_->compiled = parts_->database.Compile({text});
  std::set<std::string> given;
  for (int i = 0; i < sqlite3_column_count(parts_->compiled.get()); ++i) {
    const char* const name = sqlite3_column_name(parts_->compiled.get(), i);
    if (name == nullptr) throw std::bad_alloc();
    columns_.push_back(UniqueName(name, given));
  }
}

TSqlStatement::~TSqlStatement() = default;

bool TSqlStatement::Next(std::vector<TCIMValue>& row) {
  row.clear();
  if (!parts_->database.Step(parts_->compiled.get())) return false;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    row.push_back(ReadSqlCell(parts_->compiled.get(), static_cast<int>(i)));
  }
  return true;
}

}  // namespace NZELVYR20
