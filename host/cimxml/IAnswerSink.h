#pragma once

#include <string_view>

namespace NZELVYR20 {

/// Takes the body of an answer, piece by piece, before anything of it is sent: so an answer that
/// fails half-way can still become an error. What a sink throws passes through whoever writes.
class IAnswerSink {
 public:
  virtual ~IAnswerSink() = default;

  /// Adds a piece. Throws TAnswerTooLarge once all pieces together exceed what the server sends.
  virtual void Write(std::string_view text) = 0;
  /// Discards all pieces so far.
  virtual void Restart() = 0;
};

/// An answer has more bytes than the server sends.
class TAnswerTooLarge {};

}  // namespace NZELVYR20
