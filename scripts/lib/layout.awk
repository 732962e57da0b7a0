# What clang-format leaves open, in its layout: a file's length, an empty context, and braces around
# what fits on the line of its condition.
FNR == 301 { print FILENAME ": over 300 lines" }

/[(, ]TCIMContext\(\)[,)]/ { print FILENAME ":" FNR ": an empty context at a call is {}" }

/^ *}$/ && head ~ /^ *(if|for|while) .*\) \{$/ && body ~ /;$/ && (head body) !~ /\/\// &&
  body !~ /^ *(if|for|while|do|switch|using|else|const|auto) / {
  match(head, /^ */)
  depth = RLENGTH
  match(body, /^ */)
  if (length($0) == depth + 1 && RLENGTH == depth + 2 && length(head) + length(body) - RLENGTH <= 101)
    print FILENAME ":" FNR - 2 ": fits on one line, without braces"
}

{
  head = FNR == 1 ? "" : body
  body = $0
}
