#include "ProcessorText.h"

#include <gtest/gtest.h>

namespace NZELVYR20 {
namespace {

const char* const kX86 =
    "processor\t: 0\nvendor_id\t: GenuineIntel\nmodel name\t: Sample Xeon\nstepping\t: 7\n"
    "cpu MHz\t\t: 2600.002\nphysical id\t: 0\ncore id\t\t: 0\nflags\t\t: fpu lm sse\n"
    "power management:\n\nprocessor\t: 1\nvendor_id\t: GenuineIntel\nmodel name\t: Sample Xeon\n"
    "physical id\t: 1\ncore id\t\t: 4\nflags\t\t: fpu almost\n\n";

const char* const kOldArm =
    "Processor\t: ARMv7 rev 4 (v7l)\nprocessor\t: 0\nBogoMIPS\t: 38.40\n\n"
    "processor\t: 1\nBogoMIPS\t: 38.40\n\nFeatures\t: swp half\nCPU architecture: 7\n"
    "CPU revision\t: 4\n\nHardware\t: Sample Board\n";

const char* const kNewArm =
    "processor\t: 0\nBogoMIPS\t: 108.00\nFeatures\t: fp asimd\nCPU implementer\t: 0x41\n"
    "CPU architecture: 8\nCPU revision\t: 3\n\nprocessor\t: 1\nCPU architecture: AArch64\n";

/// What is known of each processor, and its family.
std::string Describe(const std::vector<TLogicalProcessor>& processors) {
  std::string text;
  for (const TLogicalProcessor& processor : processors) {
    text += '#' + std::to_string(processor.index) + ' ' + processor.vendor + ',' +
            processor.modelName + ',' + processor.stepping;
    if (processor.package) text += " package " + std::to_string(*processor.package);
    if (processor.core) text += " core " + std::to_string(*processor.core);
    if (processor.megaHertz) text += " MHz " + std::to_string(*processor.megaHertz);
    if (processor.addressBits) text += " bits " + std::to_string(*processor.addressBits);
    text += " family " + std::to_string(FindProcessorFamily(processor)) + ' ';
  }
  return text;
}

TEST(ProcessorText, Records) {
  const struct {
    const char* description;
    const char* text;
    const char* processors;
  } rows[] = {
      {"x86: each record has its own fields", kX86,
       "#0 GenuineIntel,Sample Xeon,7 package 0 core 0 MHz 2600 bits 64 family 179 "
       "#1 GenuineIntel,Sample Xeon, package 1 core 4 bits 32 family 179 "},
      {"ARM before Linux 3.8: the common fields stand around the records", kOldArm,
       "#0 ,ARMv7 rev 4 (v7l),4 bits 32 family 256 #1 ,ARMv7 rev 4 (v7l),4 bits 32 family 256 "},
      {"ARM of 64 bits", kNewArm, "#0 ,,3 bits 64 family 257 #1 ,, bits 64 family 257 "},
      {"ARM with one processor and no record", "Processor : ARMv6 rev 7\nCPU architecture: 6TEJ\n",
       "#0 ,ARMv6 rev 7, bits 32 family 1 "},
      {"POWER", "processor : 8\ncpu : POWER9, altivec\nclock : 3800.000000MHz\n",
       "#8 ,POWER9, altivec, MHz 3800 family 1 "},
      {"RISC-V", "processor\t: 3\nhart\t\t: 3\nisa\t\t: rv64imafdc\n", "#3 ,, bits 64 family 2 "},
      {"CR LF and no line end",
       "processor : 0\r\nmodel name : A\r\n\r\nprocessor : 1\r\nstepping : 2",
       "#0 ,A, family 1 #1 ,,2 family 2 "},
      {"cut off inside a name", "processor : 0\nmodel na", "#0 ,, family 2 "},
      {"numbers that do not fit",
       "processor : 5\nphysical id : 4294967296\ncore id : -1\ncpu MHz : 99999999999\n",
       "#5 ,, family 2 "},
      {"an index that does not fit starts no record", "processor : 4294967296\nstepping : 2\n", ""},
      {"empty", "", ""},
  };
  for (const auto& row : rows)
    EXPECT_EQ(row.processors, Describe(ParseProcessors(row.text))) << row.description;
}

TEST(ProcessorText, Caches) {
  const std::pair<const char*, std::optional<std::uint64_t>> sizes[] = {
      {"48K", 49152}, {"491520K\n", 503316480}, {"1G", 1073741824}, {"17", 17}};
  for (const auto& [text, size] : sizes) EXPECT_EQ(size, ParseCacheSize(text)) << text;
  for (const char* text : {"K", "", "4X", "-4K", "18014398509481984K"})
    EXPECT_FALSE(ParseCacheSize(text)) << text;
  EXPECT_EQ(2U, ParseFirstOfList("2-3,8\n"));
  EXPECT_EQ(5U, ParseFirstOfList("5,7"));
  EXPECT_FALSE(ParseFirstOfList(""));
  EXPECT_EQ(1, ParseCacheLevel("4"));
  EXPECT_EQ(3, ParseCacheLevel("2"));
  EXPECT_EQ(5, ParseAssociativity("0"));
  EXPECT_EQ(1, ParseAssociativity("12"));
  EXPECT_EQ(0, ParseCacheType(""));
}

}  // namespace
}  // namespace NZELVYR20
