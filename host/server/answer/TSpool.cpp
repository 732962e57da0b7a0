#include "TSpool.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace NZELVYR20 {
namespace {

/// In a folder for large files: /tmp may be memory.
TDescriptor OpenNamelessFile() {
  const char* given = std::getenv("TMPDIR");  // NOLINT(concurrency-mt-unsafe): nobody sets it
  const std::string folder = given ? given : "/var/tmp";
  TDescriptor file(open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600));
  if (file.IsOpen()) return file;
  std::string name = folder + "/vyrhost.XXXXXX";
  file = TDescriptor(mkostemp(name.data(), O_CLOEXEC));
  if (file.IsOpen()) unlink(name.c_str());
  return file;
}

}  // namespace

void TSpool::Write(std::string_view text) {
  size_ += text.size();
  if ((total_ += text.size()) > limits_.spoolBytes || size_ > limits_.answerBytes) {
    throw TAnswerTooLarge();
  }
  if (!file_.IsOpen()) {
    if (size_ <= limits_.memoryBytes) {
      text_ += text;
      return;
    }
    MoveToFile();
  }
  WriteFile(text);
}

void TSpool::Restart() {
  total_ -= size_;
  size_ = 0;
  text_.clear();
  file_ = TDescriptor();
}

void TSpool::MoveToFile() {
  file_ = OpenNamelessFile();
  WriteFile(text_);
  text_.clear();
}

void TSpool::WriteFile(std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(file_.Get(), text.data(), text.size());
    if (written <= 0) throw TAnswerTooLarge();
    text.remove_prefix(static_cast<std::size_t>(written));
  }
}

std::string_view TSpool::Read(std::uint64_t offset, std::size_t length) {
  if (!file_.IsOpen()) {
    return std::string_view{text_}.substr(static_cast<std::size_t>(offset), length);
  }
  text_.resize(std::min<std::size_t>(length, 65536));
  const ssize_t count = pread(file_.Get(), text_.data(), text_.size(), static_cast<off_t>(offset));
  return std::string_view{text_}.substr(0, count < 0 ? 0 : static_cast<std::size_t>(count));
}

}  // namespace NZELVYR20
