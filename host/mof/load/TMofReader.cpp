#include "TMofReader.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <type_traits>
#include <utility>

#include "FoldName.h"
#include "MofUnicode.h"
#include "TMofParser.h"

namespace NZELVYR20 {
namespace {

namespace fs = std::filesystem;

bool IsInclude(const TMofPragma& pragma) { return FoldName(pragma.name.GetText()) == "include"; }

}  // namespace

TMofReader::TMofReader(const TMofOptions& options, TMofDiagnostics& diagnostics, TFileRead onFile)
    : options_(options), diagnostics_(diagnostics), onFile_(std::move(onFile)), files_(options) {}

void TMofReader::ReadFileOrFolder(const fs::path& path) {
  std::error_code ignored;
  const bool isFolder = fs::is_directory(path, ignored);
  files_.Permit(isFolder ? path : path.parent_path());
  if (!isFolder) return ReadNamed(path);
  try {
    const std::vector<fs::path> files = TMofFiles::List(path);
    if (files.empty()) diagnostics_.FileError(path.string(), "The folder has no *.mof file");
    for (const fs::path& file : files) ReadNamed(file);
  } catch (const std::system_error& error) {
    diagnostics_.FileError(path.string(), error.code().message());
  }
}

void TMofReader::ReadNamed(const fs::path& path) {
  if (!files_.IsNew(TMofFiles::Resolve(path))) return;
  if (std::optional<TOpenFile> file = OpenFile(path, {})) ReadWithIncludes(std::move(*file));
}

bool TMofReader::ReadClass(const std::string& className) {
  const std::optional<fs::path> path = files_.FindClass(className);
  if (!path || !files_.IsNew(TMofFiles::Resolve(*path))) return false;
  std::optional<TOpenFile> file = OpenFile(*path, {});
  if (file) ReadWithIncludes(std::move(*file));
  return file.has_value();
}

void TMofReader::ReadText(const std::string& name, const std::string& bytes) {
  ++fileCount_;
  ReadWithIncludes({{}, Parse(name, bytes, {})});
}

/// `place` is where the file is asked for; nowhere for one that the user named.
void TMofReader::Fail(const std::string& name, const TMofPlace& place, const std::string& why) {
  if (place.byte == nullptr) {
    diagnostics_.FileError(name, why);
  } else {
    diagnostics_.Error(place, "cannot include " + name + ": " + why);
  }
}

std::optional<TMofReader::TOpenFile> TMofReader::OpenFile(const fs::path& path,
                                                          const TMofPlace& place) {
  std::string why;
  try {
    std::string bytes = files_.Read(path);
    ++fileCount_;
    onFile_(fileCount_);
    if (!bytes.empty()) return TOpenFile{path, Parse(path.string(), std::move(bytes), place)};
    why = "The file is empty";
  } catch (const std::system_error& error) {
    why = error.code().message();
  } catch (const std::logic_error& error) {  // too long, or no file
    why = error.what();
  }
  Fail(path.string(), place, why);
  return std::nullopt;
}

std::vector<TMofDeclaration> TMofReader::Parse(const std::string& name, std::string bytes,
                                               const TMofPlace& place) {
  try {
    sources_.push_back(std::make_unique<TMofSource>(name, DecodeMofText(std::move(bytes))));
  } catch (const std::invalid_argument& error) {
    Fail(name, place, error.what());
    return {};
  }
  return TMofParser(diagnostics_).Parse(*sources_.back());
}

/// Included files stand where their directive stands. A stack of our own, since how deep includes
/// may go is the user's choice.
void TMofReader::ReadWithIncludes(TOpenFile file) {
  std::vector<TOpenFile> open;
  open.push_back(std::move(file));
  while (!open.empty()) {
    TOpenFile& inner = open.back();
    if (inner.next == inner.declarations.size()) {
      open.pop_back();
      continue;
    }
    TMofDeclaration& declaration = inner.declarations[inner.next++];
    const auto* const pragma = std::get_if<TMofPragma>(&declaration);
    if (pragma == nullptr) {
      Collect(declaration);
    } else if (!IsInclude(*pragma)) {
      NotePragma(*pragma);
    } else if (std::optional<TOpenFile> included = OpenIncluded(*pragma, open)) {
      open.push_back(std::move(*included));
    }
  }
}

std::optional<TMofReader::TOpenFile> TMofReader::OpenIncluded(const TMofPragma& pragma,
                                                              const std::vector<TOpenFile>& open) {
  const TMofPlace& place = pragma.argument.place;
  const std::string name(pragma.argument.text);
  if (name.find('\\') != std::string::npos) {
    diagnostics_.Note(place, "the path has back-slashes; they are read as slashes");
  }
  const std::optional<fs::path> path = files_.FindIncluded(name, open.back().path.parent_path());
  if (!path) {
    diagnostics_.Error(
        place, "there is no file " + name + ", neither beside this one nor in the search path");
    return std::nullopt;
  }
  const fs::path resolved = TMofFiles::Resolve(*path);
  if (!files_.IsPermitted(resolved)) {
    Fail(path->string(), place,
         "it is neither in or below a folder that was named, nor in the search path");
    return std::nullopt;
  }
  const auto isSame = [&path](const TOpenFile& file) {
    std::error_code ignored;
    return fs::equivalent(file.path, *path, ignored);
  };
  if (std::any_of(open.begin(), open.end(), isSame)) {
    diagnostics_.Error(place, "the file " + path->string() + " includes itself");
    return std::nullopt;
  }
  if (open.size() >= options_.deepestInclude) {
    diagnostics_.Error(place, "more than " + std::to_string(options_.deepestInclude) +
                                  " files include each other");
    return std::nullopt;
  }
  if (!files_.IsNew(resolved)) {
    diagnostics_.Note(place, "the file " + path->string() + " was read already");
    return std::nullopt;
  }
  return OpenFile(*path, place);
}

void TMofReader::NotePragma(const TMofPragma& pragma) {
  diagnostics_.Note(pragma.name.GetPlace(),
                    "the directive " + pragma.name.GetText() + " has no effect here");
}

void TMofReader::Collect(TMofDeclaration& declaration) {
  std::visit(
      [this](auto& node) {
        using TNode = std::decay_t<decltype(node)>;
        if constexpr (std::is_same_v<TNode, TMofQualifierDeclaration>) {
          batch_.qualifiers.push_back(std::move(node));
        } else if constexpr (std::is_same_v<TNode, TMofClass>) {
          batch_.classes.push_back(std::move(node));
        } else if constexpr (std::is_same_v<TNode, TMofInstanceRun>) {
          if (batch_.instances.empty()) {
            batch_.instances.swap(node);
          } else {
            std::move(node.begin(), node.end(), std::back_inserter(batch_.instances));
          }
        }
      },
      declaration);
}

void TMofReader::Clear() {
  batch_ = {};
  diagnostics_.ForgetSources();
  sources_.clear();
}

}  // namespace NZELVYR20
