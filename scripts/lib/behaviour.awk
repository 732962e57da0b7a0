# Prints what enumerations and look-ups do, one point a line: "INTERFACE::OPERATION POINT". With
# -v form=header from the docstrings of interfaces, with form=document from the rows of tables whose
# first cell names the operation. Operations that are overloaded are taken together.

function point(operation, what) { print operation " " what }

function report(operation, text) {
  if (operation ~ /::Enumerate/) {
    if (text ~ /[Nn]ever calls back/) point(operation, "never calls back")
    if (text ~ /[Ff]alse( result)? ends/) point(operation, "false ends the walk")
    if (text ~ /ignored/) point(operation, "the result is ignored")
    if (text ~ /discarded/) point(operation, "exceptions are discarded")
    if (text ~ /passes/) point(operation, "exceptions pass")
    point(operation, "is there")
  } else if (text ~ /[Ee]mpty( pointer)? when|empty pointer/) {
    point(operation, "an empty pointer")
  }
  while (match(text, /[Ss]tatus [0-9]+/)) {
    status = substr(text, RSTART + 7, RLENGTH - 7)
    if (status != 25) point(operation, "status " status)  # of every name; said once
    text = substr(text, RSTART + RLENGTH)
  }
}

form == "header" && /^class VYR_EXPORT [A-Za-z]+/ { interface = $3; gsub(/[:;]/, "", interface) }
form == "header" && /^ *\/\/\// { sub(/^ *\/\/\/ ?/, ""); text = text " " $0; next }
form == "header" && match($0, /virtual [^(]*(Enumerate|Find|Get)[A-Za-z]*\(/) {
  name = substr($0, RSTART, RLENGTH - 1)
  sub(/.* [&*]?/, "", name)
  # What has no name or path to look for has nothing to miss.
  if (name ~ /^Enumerate/ || $0 ~ /const (std::string& name|TCIMReference& path)/)
    report(interface "::" name, text)
}
form == "header" && !/^ *\/\/\// { text = "" }

form == "document" && /^\| `[A-Za-z]+::[A-Za-z]+` \|/ {
  operation = $0
  sub(/^\| `/, "", operation); sub(/`.*/, "", operation)
  sub(/^[^|]*\|[^|]*\|/, "")
  report(operation, $0)
}
