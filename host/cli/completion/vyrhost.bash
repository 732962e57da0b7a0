# Completion of vyrhost's command line for bash. Source it, or install it as
# /usr/share/bash-completion/completions/vyrhost. What there is to offer, the program tells.
# shellcheck shell=bash

# Sets `words` to those after the program's name, up to the cursor: bash takes a:b and a=b for three.
_vyrhost_words() {
  local line=${COMP_LINE:0:COMP_POINT} blanks word i
  line=${line#"${COMP_WORDS[0]}"}
  words=()
  for ((i = 1; i <= COMP_CWORD; i++)); do
    blanks=${line%%[![:space:]]*}
    [[ -z $blanks && i -gt 1 ]] || words+=('')
    line=${line#"$blanks"}
    word=${COMP_WORDS[i]}
    ((i < COMP_CWORD)) || word=$line
    words[-1]+=$word
    line=${line#"$word"}
  done
}

# The word as the shell would pass it on.
_vyrhost_unquote() {
  local word=$1
  case $word in
    [\'\"]*) word=${word#?} word=${word%"${1:0:1}"} ;;
    *) word=${word/#\~\//$HOME/} word=${word//\\/} ;;
  esac
  printf '%s' "$word"
}

_vyrhost() {
  local words typed offered breaks=${COMP_WORDBREAKS//[^:=]/} before='' plain=() word
  COMPREPLY=()
  _vyrhost_words
  typed=${words[-1]}
  for word in "${words[@]}"; do
    plain+=("$(_vyrhost_unquote "$word")")
  done
  mapfile -t offered < <("${COMP_WORDS[0]/#\~/$HOME}" complete -- "${plain[@]}" 2>/dev/null)

  if [[ ${offered[0]-} == -[df] ]]; then
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen "${offered[0]}" -- "${typed##--*=}")
    return
  fi
  # Bash replaces what stands after the last break only; in quotes there is none.
  [[ -z $breaks || $typed == [\'\"]* || $typed == --*=* ]] || before=${typed%"${typed##*["$breaks"]}"}
  before=$(_vyrhost_unquote "$before")
  for word in "${offered[@]}"; do
    [[ $typed == [\'\"]* ]] || printf -v word %q "${word:${#before}}"
    COMPREPLY+=("$word")
  done
}

complete -F _vyrhost vyrhost
