#pragma once

#include <fcntl.h>

#include <string>
#include <vector>

#include "TDescriptor.h"

namespace NZELVYR20 {

/// How files and folders are opened, to be read alone: none makes the opener wait or becomes its
/// terminal, and a file of terabytes is too large to be read, not to be opened, in 32 bits, too.
constexpr int kReadFlags = O_NONBLOCK | O_NOCTTY | O_LARGEFILE;

/// What the system says about an error number; empty for 0.
std::string DescribeError(int error);

struct TFolderEntry {
  std::string name;
  unsigned char kind = 0;  ///< what the name stands for, as DT_REG of dirent.h
};

/// The whole of a file, at most `maximum` bytes. 0 or the error number.
int ReadAll(const TDescriptor& file, std::size_t maximum, std::string& text);

/// The same for the small files of /sys, trimmed; empty where the file is not open, cannot be read,
/// or holds more than such a file can.
std::string ReadOpenValue(const TDescriptor& file);

/// What stands in a folder, ascending by name, without "." and "..". 0 or the error number.
int ListAll(const TDescriptor& folder, std::vector<TFolderEntry>& entries);

}  // namespace NZELVYR20
