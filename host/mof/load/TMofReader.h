#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "MofSyntax.h"
#include "TMofBatch.h"
#include "TMofDiagnostics.h"
#include "TMofFiles.h"
#include "TMofOptions.h"
#include "TMofSource.h"

namespace NZELVYR20 {

/// Reads files, and what they include, into a batch of declarations. A file is read once, however
/// often it is named.
class TMofReader {
 public:
  using TFileRead = std::function<void(std::size_t files)>;

  /// `onFile` is told after each file how many there were. The options and the diagnostics
  /// outlive the reader.
  TMofReader(const TMofOptions& options, TMofDiagnostics& diagnostics, TFileRead onFile);

  void ReadFileOrFolder(const std::filesystem::path& path);
  void ReadText(const std::string& name, const std::string& bytes);
  /// Reads the file that is named after a class; false where there is none, or where it was read
  /// already.
  bool ReadClass(const std::string& className);

  std::size_t GetFileCount() const { return fileCount_; }

  /// What was read so far. Its places are valid until Clear().
  const TMofBatch& GetBatch() const { return batch_; }
  /// The same instances, which are no longer in the batch.
  std::vector<TMofInstance> TakeInstances() { return std::move(batch_.instances); }
  void Clear();

 private:
  /// A file whose declarations are being gone through, on the way down the includes.
  struct TOpenFile {
    std::filesystem::path path;
    std::vector<TMofDeclaration> declarations;
    std::size_t next = 0;
  };

  void ReadNamed(const std::filesystem::path& path);
  void ReadWithIncludes(TOpenFile file);
  std::optional<TOpenFile> OpenFile(const std::filesystem::path& path, const TMofPlace& place);
  std::vector<TMofDeclaration> Parse(const std::string& name, std::string bytes,
                                     const TMofPlace& place);
  std::optional<TOpenFile> OpenIncluded(const TMofPragma& pragma,
                                        const std::vector<TOpenFile>& open);
  void NotePragma(const TMofPragma& pragma);
  void Collect(TMofDeclaration& declaration);
  void Fail(const std::string& name, const TMofPlace& place, const std::string& why);

  const TMofOptions& options_;
  TMofDiagnostics& diagnostics_;
  TFileRead onFile_;
  TMofFiles files_;
  TMofBatch batch_;
  std::vector<std::unique_ptr<TMofSource>> sources_;
  std::size_t fileCount_ = 0;
};

}  // namespace NZELVYR20
