# Completion of vyrhost's command line for bash. Source it, or install it as
# /usr/share/bash-completion/completions/vyrhost.
# shellcheck shell=bash

# The options of a command; those of the program for no command.
_vyrhost_options() {
  case $1 in
    '') echo --help --version --plugin --root --log-level --quiet --mof --include --strict \
      --max-errors --max-file-size --max-include-depth --empty ;;
    classes) echo --tree ;;
    instances) echo --deep --no-deep --short --no-short ;;
    show) echo --raw --json ;;
    associators) echo --result-class --role --assoc-class --result-role --short --no-short ;;
    references) echo --result-class --role --short --no-short ;;
    mof) echo --inherited ;;
  esac
}

# Offers those of the words $2... that begin with $1.
_vyrhost_offer() {
  mapfile -t COMPREPLY < <(compgen -W "${*:2}" -- "$1")
}

# The schema's class names, as the program on the command line knows them, in any letter case.
_vyrhost_offer_classes() {
  local name
  COMPREPLY=()
  while read -r name _; do
    [[ ${name,,} != "${1,,}"* ]] || COMPREPLY+=("$name")
  done < <("${COMP_WORDS[0]/#\~/$HOME}" --quiet --log-level=-1 classes 2>/dev/null)
}

# Offers files (-f) or folders (-d) that begin with $2.
_vyrhost_offer_files() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen "$1" -- "$2")
}

# Offers what may follow the option $1; false where that takes no value.
_vyrhost_offer_value() {
  case $1 in
    --plugin | --mof) _vyrhost_offer_files -f "$2" ;;
    --root | --include) _vyrhost_offer_files -d "$2" ;;
    --result-class | --assoc-class) _vyrhost_offer_classes "$2" ;;
    --log-level) _vyrhost_offer "$2" -1 0 3 ;;
    --max-errors | --max-file-size | --max-include-depth | --role | --result-role) ;;
    *) return 1 ;;
  esac
}

_vyrhost() {
  local word=${COMP_WORDS[COMP_CWORD]} option=${COMP_WORDS[COMP_CWORD - 1]} command='' i
  COMPREPLY=()
  # Bash takes --option=value for three words.
  if [[ $word == = ]]; then
    word=
  elif [[ $option == = ]]; then
    option=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  _vyrhost_offer_value "$option" "$word" && return

  local commands='classes class instances show associators references mof'
  for ((i = COMP_CWORD - 1; i > 0; i--)); do
    [[ " $commands " != *" ${COMP_WORDS[i]} "* ]] || command=${COMP_WORDS[i]}
  done
  case $command:$word in
    *:-*) _vyrhost_offer "$word" "$(_vyrhost_options '')" "$(_vyrhost_options "$command")" ;;
    :*) _vyrhost_offer "$word" "$commands" ;;
    classes:* | class:* | instances:* | mof:*) _vyrhost_offer_classes "$word" ;;
  esac
}

complete -F _vyrhost vyrhost
