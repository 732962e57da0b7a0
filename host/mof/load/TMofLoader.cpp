#include "TMofLoader.h"

#include <set>
#include <utility>

#include "FindOrNothing.h"
#include "FoldName.h"
#include "TMofClasses.h"
#include "TMofInstances.h"
#include "TMofLeftOut.h"
#include "TMofQualifiers.h"
#include "TMofReader.h"

namespace NZELVYR20 {

class TMofLoader::TImpl {
 public:
  TImpl(boost::shared_ptr<ICIMNamespace> nameSpace, TMofOptions options,
        TMofDiagnostics::TSink sink, TProgress progress);

  TMofReader& GetReader() { return reader_; }
  void Enter();
  TMofSummary GetSummary() const;

 private:
  void ReadMissingClasses();
  void ReadMissing(const std::string& className);
  void EnterBatch();
  void Forget();

  boost::shared_ptr<ICIMNamespace> namespace_;
  TMofOptions options_;
  TProgress progress_;
  TMofDiagnostics diagnostics_;
  TMofReader reader_;
  TMofSummary summary_;
  TMofQualifiers qualifiers_;
  std::set<std::string> known_;  ///< folded names of classes that are there or were searched for
  std::size_t learned_ = 0;      ///< of the batch's classes, how many are in known_
};

TMofLoader::TImpl::TImpl(boost::shared_ptr<ICIMNamespace> nameSpace, TMofOptions options,
                         TMofDiagnostics::TSink sink, TProgress progress)
    : namespace_(std::move(nameSpace)),
      options_(std::move(options)),
      progress_(progress ? std::move(progress) : [](const char*, std::size_t, std::size_t) {}),
      diagnostics_(options_, std::move(sink)),
      reader_(options_, diagnostics_, [this](std::size_t files) { progress_("files", files, 0); }),
      qualifiers_(namespace_, diagnostics_, summary_) {}

/// Each class may stand in a file of its own name, which then may need further ones. The batch
/// grows while it is gone through.
void TMofLoader::TImpl::ReadMissingClasses() {
  if (options_.searchPath.empty()) return;
  const TMofBatch& batch = reader_.GetBatch();
  std::size_t nextClass = 0;
  std::size_t nextInstance = 0;
  while (nextClass < batch.classes.size() || nextInstance < batch.instances.size()) {
    if (nextInstance < batch.instances.size()) {
      ReadMissing(batch.instances[nextInstance++].className.GetText());
      continue;
    }
    for (const TMofName& name : GetNeededClasses(batch.classes[nextClass++])) {
      ReadMissing(name.GetText());
    }
  }
}

void TMofLoader::TImpl::ReadMissing(const std::string& className) {
  const TMofBatch& batch = reader_.GetBatch();
  while (learned_ < batch.classes.size()) {
    known_.insert(FoldName(batch.classes[learned_++].name.GetText()));
  }
  if (!known_.insert(FoldName(className)).second) return;
  if (!FindOrNothing([&] { return namespace_->GetClass(className, {}); })) {
    reader_.ReadClass(className);
  }
}

void TMofLoader::TImpl::Enter() {
  try {
    EnterBatch();
  } catch (...) {
    Forget();
    throw;
  }
  Forget();
}

void TMofLoader::TImpl::EnterBatch() {
  ReadMissingClasses();
  const TMofBatch& batch = reader_.GetBatch();
  qualifiers_.Declare(batch.qualifiers);
  TMofLeftOut leftOut(summary_);
  TMofClasses(namespace_, diagnostics_, summary_, qualifiers_, leftOut, *options_.referenceClasses,
              batch.classes)
      .Enter([this](std::size_t done, std::size_t all) { progress_("classes", done, all); });
  TMofInstances(namespace_, diagnostics_, summary_, leftOut, reader_.TakeInstances())
      .Enter([this](std::size_t done, std::size_t all) { progress_("instances", done, all); });
}

void TMofLoader::TImpl::Forget() {
  qualifiers_.Clear();
  known_.clear();
  learned_ = 0;
  reader_.Clear();
}

TMofSummary TMofLoader::TImpl::GetSummary() const {
  TMofSummary summary = summary_;
  summary.files = reader_.GetFileCount();
  summary.errors = diagnostics_.GetErrorCount();
  summary.warnings = diagnostics_.GetWarningCount();
  summary.notes = diagnostics_.GetNoteCount();
  return summary;
}

TMofLoader::TMofLoader(boost::shared_ptr<ICIMNamespace> nameSpace, TMofOptions options,
                       TMofDiagnostics::TSink sink, TProgress progress)
    : impl_(std::make_unique<TImpl>(std::move(nameSpace), std::move(options), std::move(sink),
                                    std::move(progress))) {}

TMofLoader::~TMofLoader() = default;

void TMofLoader::Read(const std::string& fileOrFolder) {
  impl_->GetReader().ReadFileOrFolder(fileOrFolder);
}

void TMofLoader::ReadText(const std::string& name, const std::string& text) {
  impl_->GetReader().ReadText(name, text);
}

void TMofLoader::Enter() { impl_->Enter(); }

TMofSummary TMofLoader::GetSummary() const { return impl_->GetSummary(); }

}  // namespace NZELVYR20
