#pragma once

#include <functional>

#include "EFormat.h"
#include "ListElements.h"
#include "TInstanceJson.h"
#include "TOrigin.h"
#include "TPropertyChoice.h"
#include "TRowWriter.h"
#include "TTerminal.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// How a list of instances is written.
struct TListForm {
  EFormat format = EFormat::kTable;
  bool isRaw = false;  ///< values as they are stored; JSON has them in any case
  TOrigin origin;      ///< for JSON lines
  TTerminal terminal;
};

/// Writes lists of instances, one instance after the other.
class TInstanceWriter {
 public:
  TInstanceWriter(TListForm form, TWriteText write);

  /// With the chosen properties; tables and CSV have a row for each instance. MOF, which knows
  /// whole instances only, is a TCommandError.
  void WriteList(const TInstanceList& instances, const TPropertyChoice& choice) const;

  /// With all properties; tables and CSV have a row for each instance, with whatever any of them
  /// has a value of, and CSV its path before that.
  void WriteList(const TInstanceList& instances) const;

  /// With all properties; CSV has a row for each one that is not null, with its class, path, name,
  /// type, value and text. There is no such table.
  void WriteWhole(const TInstanceList& instances) const;

 private:
  using TRead = std::function<TInstanceJson::TProperties(ICIMInstance& instance)>;

  bool IsJson() const;
  void WriteJson(const TInstanceList& instances, const TRead& read) const;
  void WriteProperties(const TInstanceList& instances) const;
  void WriteMof(const TInstanceList& instances) const;
  void WriteRows(const TInstanceList& instances, const TPropertyChoice& choice, bool hasPath) const;
  TCell MakeCell(const ICIMProperty& property) const;

  TListForm form_;
  TWriteText write_;
};

}  // namespace NZELVYR20
