#include "DisplayText.h"

#include <algorithm>
#include <array>
#include <iomanip>
#include <numeric>
#include <sstream>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kBlockSize = 128;

/// One block, whose numbers have their least byte first.
class TDisplayBlock {
 public:
  explicit TDisplayBlock(std::string_view bytes) : bytes_(bytes.substr(0, kBlockSize)) {}

  bool IsSound() const {
    using namespace std::string_view_literals;
    constexpr unsigned kByte = 256;
    const auto add = [](unsigned sum, char byte) { return sum + static_cast<unsigned char>(byte); };
    return bytes_.size() == kBlockSize && bytes_.substr(0, 8) == "\0\xff\xff\xff\xff\xff\xff\0"sv &&
           std::accumulate(bytes_.begin(), bytes_.end(), 0U, add) % kByte == 0;
  }

  unsigned Get(std::size_t place) const { return static_cast<unsigned char>(bytes_[place]); }
  unsigned GetWord(std::size_t place) const { return Get(place) | Get(place + 1) << 8U; }

  /// Of the texts that have room for 13 letters the one of that kind; empty where there is none.
  std::string FindText(unsigned kind) const {
    constexpr std::size_t kSize = 13;
    for (const std::size_t at : kDescriptors) {
      const bool isText = GetWord(at) == 0 && Get(at + 3) == kind;
      if (isText) return KeepPrintable(bytes_.substr(at + 5, kSize));
    }
    return {};
  }

  static constexpr std::array<std::size_t, 4> kDescriptors = {54, 72, 90, 108};

 private:
  static std::string KeepPrintable(std::string_view text) {
    std::string kept(Trim(text.substr(0, text.find('\n'))));
    const auto isOdd = [](char letter) { return letter < ' ' || letter > '~'; };
    std::replace_if(kept.begin(), kept.end(), isOdd, '?');
    return kept;
  }

  std::string_view bytes_;
};

/// Five bits for each of three letters, of which A is 1; greatest byte first.
std::string ReadMaker(const TDisplayBlock& block) {
  constexpr unsigned kLetter = 31;
  const unsigned packed = block.Get(8) << 8U | block.Get(9);
  std::string letters;
  for (const unsigned shift : {10U, 5U, 0U}) {
    const unsigned letter = packed >> shift & kLetter;
    if (letter == 0 || letter > 26) return {};
    letters += static_cast<char>('A' + letter - 1);
  }
  return letters;
}

std::string ReadProduct(const TDisplayBlock& block) {
  std::ostringstream text;
  text << "0x" << std::hex << std::setfill('0') << std::setw(4) << block.GetWord(10);
  return text.str();
}

/// As a text where there is one, else as a number, of which 0 is none.
std::string ReadSerialNumber(const TDisplayBlock& block) {
  constexpr unsigned kSerialNumber = 0xff;
  const std::string text = block.FindText(kSerialNumber);
  const std::uint32_t number = block.GetWord(12) | block.GetWord(14) << 16U;
  return text.empty() && number != 0 ? std::to_string(number) : text;
}

}  // namespace

std::optional<TDisplayFacts> ParseDisplay(std::string_view edid) {
  constexpr unsigned kName = 0xfc;
  constexpr unsigned kFirstYear = 1990;
  constexpr unsigned kHighBits = 0xf0;
  const TDisplayBlock block(edid);
  if (!block.IsSound()) return std::nullopt;
  TDisplayFacts facts;
  facts.maker = ReadMaker(block);
  facts.product = ReadProduct(block);
  facts.name = block.FindText(kName);
  facts.serialNumber = ReadSerialNumber(block);
  if (block.Get(17) > 0) facts.year = std::to_string(kFirstYear + block.Get(17));
  // The first description is a picture's where it has a clock, and then the one that suits best.
  const std::size_t best = TDisplayBlock::kDescriptors.front();
  if (block.GetWord(best) != 0) {
    facts.width = block.Get(best + 2) | (block.Get(best + 4) & kHighBits) << 4U;
    facts.height = block.Get(best + 5) | (block.Get(best + 7) & kHighBits) << 4U;
  }
  return facts;
}

bool IsDisplayController(std::string_view name) {
  constexpr std::string_view kCard = "card";
  return name.substr(0, kCard.size()) == kCard && ParseUnsigned(name.substr(kCard.size()));
}

bool IsForBuiltInDisplay(std::string_view connector) {
  const std::string_view kind = connector.substr(0, connector.find('-'));
  return kind == "eDP" || kind == "LVDS" || kind == "DSI";
}

}  // namespace NZELVYR20
