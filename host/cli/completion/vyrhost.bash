# Completion of vyrhost's command line for bash. Source it, or install it as
# /usr/share/bash-completion/completions/vyrhost.
# shellcheck shell=bash

# The options of a command; those of the program for no command.
_vyrhost_options() {
  case $1 in
    '') echo --help --version --plugin --root --log-level --quiet --mof --include --strict \
      --max-errors --max-file-size --max-include-depth --empty --format ;;
    all) echo --format ;;
    classes) echo --tree ;;
    instances) echo --deep --no-deep --where --sort --descending --limit --properties --format \
      --raw --count ;;
    show) echo --raw --json --format ;;
    sql) echo --format --save ;;
    associators) echo --result-class --role --assoc-class --result-role ;;
    references) echo --result-class --role ;;
    tree) echo --up --down --depth --assoc-class ;;
    graph) echo --format --depth ;;
    mof) echo --inherited ;;
    diff) echo --all ;;
    watch) echo --every --rounds --all ;;
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
    --format) _vyrhost_offer "$2" table json jsonl csv mof dot mermaid svg ;;
    --log-level) _vyrhost_offer "$2" -1 0 3 ;;
    --max-errors | --max-file-size | --max-include-depth | --where | --sort | --limit | --properties | --role | --result-role | --depth | --every | --rounds) ;;
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

  local commands='all classes class instances show sql associators references tree graph mof snapshot diff watch'
  for ((i = COMP_CWORD - 1; i > 0; i--)); do
    [[ " $commands " != *" ${COMP_WORDS[i]} "* ]] || command=${COMP_WORDS[i]}
  done
  case $command:$word in
    *:-*) _vyrhost_offer "$word" "$(_vyrhost_options '')" "$(_vyrhost_options "$command")" ;;
    :*) _vyrhost_offer "$word" "$commands" ;;
    classes:* | class:* | instances:* | graph:* | mof:*) _vyrhost_offer_classes "$word" ;;
    snapshot:* | diff:*) _vyrhost_offer_files -f "$word" ;;
  esac
}

complete -F _vyrhost vyrhost
