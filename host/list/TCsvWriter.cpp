#include "TCsvWriter.h"

#include <string>
#include <utility>

namespace NZELVYR20 {
namespace {

std::string Quote(const std::string& field) {
  if (!field.empty() && field.find_first_of(",\"\r\n") == std::string::npos) return field;
  std::string quoted = "\"";
  for (const char letter : field) {
    if (letter == '"') quoted += '"';
    quoted += letter;
  }
  return quoted + '"';
}

}  // namespace

TCsvWriter::TCsvWriter(TWriteText write) : write_(std::move(write)) {}

void TCsvWriter::Add(const std::vector<TField>& fields) {
  std::string line;
  for (const TField& field : fields) {
    if (&field != &fields.front()) line += ',';
    if (field || fields.size() == 1) line += Quote(field.value_or(""));
  }
  write_(line + "\r\n");
}

}  // namespace NZELVYR20
