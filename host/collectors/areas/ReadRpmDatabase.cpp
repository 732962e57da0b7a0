#include "ReadRpmDatabase.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <memory>

#include "OpenFiles.h"

namespace NZELVYR20 {
namespace {

using TDatabase = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;
using TStatement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

/// By the number of the open file: its path may lead elsewhere than below the root. Nothing is
/// written, which the word "immutable" sees to.
TDatabase OpenDatabase(const TDescriptor& file) {
  const std::string name = "file:/proc/self/fd/" + std::to_string(file.Get()) + "?immutable=1";
  sqlite3* opened = nullptr;
  sqlite3_open_v2(name.c_str(), &opened, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
  return {opened, &sqlite3_close};
}

std::string_view GetBlob(sqlite3_stmt* statement) {
  const void* bytes = sqlite3_column_blob(statement, 0);
  const int size = sqlite3_column_bytes(statement, 0);
  return bytes ? std::string_view(static_cast<const char*>(bytes), static_cast<std::size_t>(size))
               : std::string_view();
}

}  // namespace

std::vector<TPackageFacts> ReadRpmDatabase(const TMachineFiles& files, const std::string& path,
                                           std::string& why) {
  std::vector<TPackageFacts> packages;
  const TDescriptor file = files.Find(path);
  struct stat64 status = {};
  if (fstat64(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) {
    why = "Not a regular file";
    return packages;
  }
  const TDatabase database = OpenDatabase(file);
  sqlite3_stmt* prepared = nullptr;
  sqlite3_prepare_v2(database.get(), "SELECT blob FROM Packages ORDER BY hnum", -1, &prepared,
                     nullptr);
  const TStatement statement(prepared, &sqlite3_finalize);
  while (prepared && sqlite3_step(prepared) == SQLITE_ROW) {
    if (auto package = ParseRpmHeader(GetBlob(prepared))) packages.push_back(std::move(*package));
  }
  const int code = sqlite3_errcode(database.get());
  if (code != SQLITE_DONE) why = sqlite3_errmsg(database.get());
  return packages;
}

}  // namespace NZELVYR20
