#include "DisplayFunction.h"

#include <algorithm>
#include <set>
#include <string>

#include "CallFromSqlite.h"
#include "FoldName.h"
#include "ListClasses.h"
#include "ReadValue.h"
#include "SqlValue.h"
#include "TCommandError.h"
#include "TPrinter.h"
#include "TSuggestion.h"

namespace NZELVYR20 {
namespace {

std::set<std::string> ListPropertyNames(ICIMNamespace& nameSpace) {
  std::set<std::string> names;
  for (const auto& cimClass : ListAllClasses(nameSpace)) {
    for (const auto& declaration : ListPropertyDecls(*cimClass)) {
      names.insert(declaration->GetName({}));
    }
  }
  return names;
}

/// Of instances of many classes some may lack a property; that none has it is a slip.
void CheckIsProperty(TSqlShared& shared, const std::string& name) {
  if (shared.properties.empty()) shared.properties = ListPropertyNames(*shared.nameSpace);
  const auto isIt = [&name](const std::string& known) { return CompareFolded(known, name) == 0; };
  const auto& names = shared.properties;
  if (std::any_of(names.begin(), names.end(), isIt)) return;
  throw TCommandError("display(): no class has a property " + name +
                      TSuggestion::For(name, {names.begin(), names.end()}));
}

/// A text that is no name names nothing either.
boost::shared_ptr<ICIMProperty> FindNamed(ICIMInstance& instance, const std::string& name) {
  try {
    return FindProperty(instance, name);
  } catch (const TVYRException&) {
    return {};
  }
}

void Display(TSqlShared& shared, sqlite3_context* result, const std::string& path,
             const std::string& name) {
  const auto instance = shared.paths.Find(path);
  if (!instance) return;
  const auto property = FindNamed(*instance, name);
  if (!property) return CheckIsProperty(shared, name);
  const std::string text = TPrinter::PropertyText(*property);
  if (!text.empty() || !property->GetValue({}).IsNull()) SetSqlText(result, text);
}

void CallDisplay(sqlite3_context* result, int, sqlite3_value** arguments) {
  auto& shared = *static_cast<TSqlShared*>(sqlite3_user_data(result));
  const auto work = [&] {
    Display(shared, result, ReadSqlText(arguments[0]), ReadSqlText(arguments[1]));
  };
  const int status = CallFromSqlite(
      work, [result](const char* message) { sqlite3_result_error(result, message, -1); });
  if (status == SQLITE_NOMEM) sqlite3_result_error_nomem(result);
}

}  // namespace

int AddDisplayFunction(sqlite3* database, TSqlShared& shared) {
  return sqlite3_create_function_v2(database, "display", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                                    &shared, CallDisplay, nullptr, nullptr, nullptr);
}

}  // namespace NZELVYR20
