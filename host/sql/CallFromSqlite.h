#pragma once

#include <sqlite3.h>

#include <exception>
#include <new>

namespace NZELVYR20 {

/// Runs what SQLite calls, which no exception may pass: gives its status, and a failure's message
/// to `takeMessage`.
template <class TWork, class TTakeMessage>
int CallFromSqlite(const TWork& work, const TTakeMessage& takeMessage) noexcept {
  try {
    work();
    return SQLITE_OK;
  } catch (const std::bad_alloc&) {
    return SQLITE_NOMEM;
  } catch (const std::exception& failure) {
    takeMessage(failure.what());
    return SQLITE_ERROR;
  }
}

}  // namespace NZELVYR20
