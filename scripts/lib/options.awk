# Prints what a help text of vyrhost (-v form=help) or its man page (-v form=man) offers, one a
# line: "COMMAND", or "COMMAND --option", where the program itself counts as the command "vyrhost".
# Of a help text, -v command=NAME says whose it is.

function print_options(text) {
  while (match(text, /--[a-z][a-z-]*/)) {
    option = substr(text, RSTART, RLENGTH)
    text = substr(text, RSTART + RLENGTH)
    if (command == "vyrhost" || option != "--help") print command, option
  }
}

form == "help" && /^[^ ]/ { section = tolower($NF) }
form == "help" && section == "options:" && /^  -/ {
  sub(/^ +/, "")
  sub(/  .*/, "")
  sub(/Excludes:.*/, "")
  print_options($0)
}
form == "help" && section == "commands:" && /^  [a-z]/ { print $1 }

form == "man" && /^\.Sh/ { command = /OPTIONS/ ? "vyrhost" : "" }
form == "man" && /^\.Ss/ { command = $2; print command }
form == "man" && command != "" && /^\.It Fl/ { gsub(/Fl /, "-"); print_options($0) }
