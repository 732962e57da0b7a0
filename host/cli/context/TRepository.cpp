#include "TRepository.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "LoadMof.h"
#include "OpenNamespace.h"
#include "TCommandError.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

/// The collectors would report every single file of a root that is not there.
std::string CheckRoot(const std::string& root) {
  std::error_code error;
  if (!std::filesystem::is_directory(root, error)) {
    const auto why = error ? error : std::make_error_code(std::errc::not_a_directory);
    throw TCommandError("--root \"" + root + "\": " + why.message());
  }
  return root;
}

}  // namespace

TRepository::TRepository(const THostOptions& options)
    : collector_(CheckRoot(options.root), options.extras),
      namespace_(OpenNamespace(options.plugin)) {
  if (!options.isEmpty) LoadSchema(namespace_, options.mofOptions);
}

void TRepository::Collect() {
  try {
    notes_ = collector_.Collect(namespace_);
    origin_.machine = TOrigin::FindMachine(*namespace_);
  } catch (const TVYRException& error) {
    throw TCommandError(std::string("cannot store the machine's data: ") + error.what());
  }
}

TOrigin TRepository::GetOrigin() const {
  TOrigin origin = origin_;
  if (origin.machine.empty()) origin.machine = TOrigin::FindMachine(*namespace_);
  return origin;
}

}  // namespace NZELVYR20
