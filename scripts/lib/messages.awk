# Prints the log messages that C++ sources can write, one a line: "LEVEL TEXT", where <> stands for
# what the program puts in. A function that logs what its caller says gives a message for each call
# in its file. Relies on the layout that clang-format gives. The levels come in as -v validation=N
# and -v definition=N.

function split_pieces(text, pieces,    count, depth, inside, i, c, piece) {
  count = depth = inside = 0; piece = ""
  for (i = 1; i <= length(text); ++i) {
    c = substr(text, i, 1)
    if (c == "\"" && substr(text, i - 1, 1) != "\\") inside = !inside
    if (!inside && c ~ /[({]/) ++depth
    if (!inside && c ~ /[)}]/) --depth
    if (!inside && !depth && (c ~ /[+,]/ || substr(text, i, 2) == "<<")) {
      pieces[++count] = trim(piece); piece = ""
      if (c == "<") ++i
    } else piece = piece c
  }
  pieces[++count] = trim(piece)
  return count
}

function trim(text) { gsub(/^ +| +$/, "", text); return text }

# The arguments or operands between `start` and the end of the statement or call.
function read_until(text, start, closing,    i, c, depth, inside) {
  depth = inside = 0
  for (i = start; i <= length(text); ++i) {
    c = substr(text, i, 1)
    if (c == "\"" && substr(text, i - 1, 1) != "\\") inside = !inside
    if (inside) continue
    if (c == closing && !depth) return substr(text, start, i - start)
    if (c ~ /[({]/) ++depth
    if (c ~ /[)}]/) --depth
  }
  return ""
}

# A literal's text; what stands for the parameter of that name; <> for anything else.
function piece_text(piece, parameters, arguments, count,    i) {
  if (piece ~ /^std::string\(".*"\)$/) piece = substr(piece, 13, length(piece) - 13)
  if (piece ~ /^"/) {
    if (length(piece) > 3) gsub(/" "/, "", piece)  # neighbouring literals are one
    return substr(piece, 2, length(piece) - 2)
  }
  for (i = 1; i <= count; ++i)
    if (parameters[i] == piece && arguments[i] ~ /^"/) return piece_text(arguments[i])
  return "<>"
}

function print_message(level, expression, parameters, arguments, count,    pieces, i, n, text) {
  n = split_pieces(expression, pieces)
  text = ""
  for (i = 1; i <= n; ++i) text = text piece_text(pieces[i], parameters, arguments, count)
  if (text ~ /[A-Za-z]/) print level, text
}

# The function in which the text before an expression ends: its name, and its parameters' names.
function enclosing(before, parameters,    definition, count, i) {
  definition = ""
  while (match(before, /[A-Za-z_]+\([^(){}]*\)( const)? \{/)) {
    definition = substr(before, RSTART, RLENGTH)
    before = substr(before, RSTART + RLENGTH)
  }
  name = definition
  sub(/\(.*/, "", name)
  sub(/^[^(]*\(/, "", definition)
  sub(/\)( const)? \{$/, "", definition)
  count = split(definition, parameters, /,/)
  for (i = 1; i <= count; ++i) sub(/.*[ &*]/, "", parameters[i])
  return count
}

function report(level, before, expression,    parameters, arguments, count, rest, isCalled) {
  count = enclosing(before, parameters)
  rest = source
  isCalled = 0
  while (name != "" && match(rest, "[^A-Za-z_:]" name "\\(")) {
    rest = substr(rest, RSTART + RLENGTH)
    split_pieces(read_until(rest, 1, ")"), arguments)
    if (arguments[1] ~ /&? [a-z][A-Za-z]*$/) continue  # a definition
    isCalled = 1
    print_message(level, expression, parameters, arguments, count)
  }
  if (!isCalled) print_message(level, expression, parameters, arguments, 0)
}

function scan(    rest, seen, call, start) {
  level = source ~ /LogDefinitionFailure\(message/ ? definition : validation  # of what is streamed into a message
  rest = source
  seen = ""
  while (match(rest, /Log(Validation|Definition)Failure\(|message << /)) {
    call = substr(rest, RSTART, RLENGTH)
    start = RSTART + RLENGTH
    seen = seen substr(rest, 1, start - 1)
    rest = substr(rest, start)
    if (call ~ /Validation/) report(validation, seen, read_until(rest, 1, ")"))
    else if (call ~ /Definition/) report(definition, seen, read_until(rest, 1, ")"))
    else report(level, seen, read_until(rest, 1, ";"))
  }
}

FNR == 1 && NR > 1 { scan(); source = "" }
{ sub(/ *\/\/.*/, ""); sub(/^ +/, ""); source = source " " $0 }
END { scan() }
