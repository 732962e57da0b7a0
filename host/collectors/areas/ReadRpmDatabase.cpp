#include "ReadRpmDatabase.h"

#include <dlfcn.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <memory>
#include <utility>

#include "OpenFiles.h"

namespace NZELVYR20 {
namespace {

/// The functions of SQLite, which is loaded where there is a database to read: other programs that
/// collect need no such library.
class TSqlite {
 public:
  TSqlite()
      : library_(dlopen("libsqlite3.so.0", RTLD_NOW | RTLD_LOCAL)),
        isThere_(library_ != nullptr && FindAll()) {}
  ~TSqlite() {
    if (library_ != nullptr) dlclose(library_);
  }
  TSqlite(const TSqlite&) = delete;
  TSqlite& operator=(const TSqlite&) = delete;

  bool IsThere() const { return isThere_; }

  decltype(&sqlite3_open_v2) open = nullptr;
  decltype(&sqlite3_close) close = nullptr;
  decltype(&sqlite3_prepare_v2) prepare = nullptr;
  decltype(&sqlite3_step) step = nullptr;
  decltype(&sqlite3_column_blob) getBlob = nullptr;
  decltype(&sqlite3_column_bytes) getSize = nullptr;
  decltype(&sqlite3_finalize) finalize = nullptr;
  decltype(&sqlite3_errmsg) getMessage = nullptr;

 private:
  template <class TFunction>
  bool Find(const char* name, TFunction& function) const {
    function = reinterpret_cast<TFunction>(dlsym(library_, name));
    return function != nullptr;
  }

  bool FindAll() {
    return Find("sqlite3_open_v2", open) && Find("sqlite3_close", close) &&
           Find("sqlite3_prepare_v2", prepare) && Find("sqlite3_step", step) &&
           Find("sqlite3_column_blob", getBlob) && Find("sqlite3_column_bytes", getSize) &&
           Find("sqlite3_finalize", finalize) && Find("sqlite3_errmsg", getMessage);
  }

  void* library_;
  bool isThere_;
};

using TDatabase = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;
using TStatement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

/// By the number of the open file: its path may lead elsewhere than below the root. Nothing is
/// written, which the word "immutable" sees to.
TDatabase OpenDatabase(const TSqlite& sqlite, const TDescriptor& file) {
  const std::string name = "file:/proc/self/fd/" + std::to_string(file.Get()) + "?immutable=1";
  sqlite3* opened = nullptr;
  sqlite.open(name.c_str(), &opened, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
  return {opened, sqlite.close};
}

std::string_view GetBlob(const TSqlite& sqlite, sqlite3_stmt* statement) {
  const void* bytes = sqlite.getBlob(statement, 0);
  const int size = sqlite.getSize(statement, 0);
  return bytes ? std::string_view(static_cast<const char*>(bytes), static_cast<std::size_t>(size))
               : std::string_view();
}

}  // namespace

std::vector<TPackageFacts> ReadRpmDatabase(const TMachineFiles& files, const std::string& path,
                                           std::string& why) {
  std::vector<TPackageFacts> packages;
  const TDescriptor file = files.Find(path);
  struct stat64 status = {};
  const bool isFile = fstat64(file.Get(), &status) == 0 && S_ISREG(status.st_mode);
  const TSqlite sqlite;
  if (!isFile) why = "Not a regular file";
  if (isFile && !sqlite.IsThere()) why = "The library libsqlite3.so.0 is not installed";
  if (!why.empty()) return packages;
  const TDatabase database = OpenDatabase(sqlite, file);
  sqlite3_stmt* prepared = nullptr;
  int code = sqlite.prepare(database.get(), "SELECT blob FROM Packages ORDER BY hnum", -1,
                            &prepared, nullptr);
  const TStatement statement(prepared, sqlite.finalize);
  while (prepared && (code = sqlite.step(prepared)) == SQLITE_ROW) {
    if (auto package = ParseRpmHeader(GetBlob(sqlite, prepared))) {
      packages.push_back(std::move(*package));
    }
  }
  if (code != SQLITE_DONE) why = sqlite.getMessage(database.get());
  return packages;
}

}  // namespace NZELVYR20
