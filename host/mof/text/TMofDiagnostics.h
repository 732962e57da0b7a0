#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>

#include "TMofOptions.h"
#include "TMofSource.h"

namespace NZELVYR20 {

/// Thrown after the first error of a strict load, which has then been reported.
class TMofStrictStop {};

/// Where everything that is found in MOF is said: "name:line:column: error: text", below it the
/// line of the source and a caret under the column. What has no place in a source is said of a
/// file ("name: error: text") or of nothing in particular ("error: text").
///
/// Each severity has its limit (TMofOptions::reportLimit); a last line says that there is more.
/// Everything is counted. In quiet mode only errors are said. In strict mode warnings are errors,
/// and an error throws TMofStrictStop.
class TMofDiagnostics {
 public:
  /// Receives each message, several lines with ends between them but none after the last.
  using TSink = std::function<void(const std::string& message)>;

  TMofDiagnostics(const TMofOptions& options, TSink sink);

  /// The sources in which places lie, from when they are read until they go.
  void AddSource(const TMofSource& source);
  void ForgetSources() { sources_.clear(); }
  /// Whether a place stands after another one in the same source.
  bool IsFurtherDown(const TMofPlace& place, const TMofPlace& other) const;

  /// What is wrong and was left out.
  void Error(const TMofPlace& place, const std::string& text);
  void FileError(const std::string& file, const std::string& text);
  /// What is doubtful and was read all the same.
  void Warning(const TMofPlace& place, const std::string& text);
  /// What a reader may like to know.
  void Note(const TMofPlace& place, const std::string& text);

  std::size_t GetErrorCount() const { return errors_.count; }
  std::size_t GetWarningCount() const { return warnings_.count; }
  std::size_t GetNoteCount() const { return notes_.count; }

 private:
  struct TSeverity {
    const char* name;
    std::size_t count = 0;
  };

  void Report(TSeverity& severity, const std::string& where, const std::string& text,
              const std::string& excerpt);
  void ReportAt(TSeverity& severity, const TMofPlace& place, const std::string& text);
  const TMofSource& FindSource(const TMofPlace& place) const;

  std::size_t limit_;
  bool isQuiet_;
  bool isStrict_;
  TSink sink_;
  std::map<const char*, const TMofSource*> sources_;  ///< by the beginnings of their texts
  TSeverity errors_{"error"};
  TSeverity warnings_{"warning"};
  TSeverity notes_{"note"};
};

}  // namespace NZELVYR20
