#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace NZELVYR20 {

/// A file that takes the place of another one only when it is whole: until then it stands beside
/// it, under a name of its own. What is no regular file, such as a pipe, is written to directly.
class TFileReplacement {
 public:
  /// Throws TCommandError, as the others do.
  explicit TFileReplacement(const std::string& path);
  TFileReplacement(const TFileReplacement&) = delete;
  TFileReplacement& operator=(const TFileReplacement&) = delete;
  /// Without Finish() everything stays as it was.
  ~TFileReplacement();

  void Write(const std::string& text);
  /// Everything is on the disk, and in its place.
  void Finish();

 private:
  struct TClose {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  void Check(bool isDone) const;

  std::string given_;      ///< for messages
  std::string target_;     ///< where links lead
  std::string temporary_;  ///< empty where the target is written to directly
  std::unique_ptr<std::FILE, TClose> file_;
};

}  // namespace NZELVYR20
