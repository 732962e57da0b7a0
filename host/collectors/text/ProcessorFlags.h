#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace NZELVYR20 {

/// Whether the word is one of those between blanks.
bool HasFlag(std::string_view flags, std::string_view flag);

/// What an x86 offers for virtual machines, such as "VT-x".
std::string FindVirtualization(std::string_view flags);

/// The instructions beyond the usual that programs are built for, such as "AVX AES", by the flags
/// of x86 or the features of ARM, LoongArch and s390x.
std::string ListExtensions(std::string_view flags);

/// The standard's Characteristics that the flags of an x86 tell; none without flags.
std::vector<unsigned> FindCharacteristics(std::string_view flags);

}  // namespace NZELVYR20
