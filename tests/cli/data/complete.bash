# complete.bash PROGRAM COMPLETION LINE: what the last word of LINE, up to the cursor, becomes with
# each of the candidates, as bash does it: it parts words at ":" and "=", and replaces the last part.
source "$2"
COMP_WORDBREAKS=$' \t\n"\'><=;|&(:'
COMP_LINE="$1 $3" COMP_POINT=$((${#1} + 1 + ${#3})) COMP_WORDS=("$1") rest=$3
while [[ $rest =~ ^[[:blank:]]*([:=]|\'[^\']*|([^[:blank:]:=\\]|\\.)+)(.*)$ ]]; do
  COMP_WORDS+=("${BASH_REMATCH[1]}") rest=${BASH_REMATCH[3]}
done
[[ $COMP_LINE != *[[:blank:]] ]] || COMP_WORDS+=('')
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
_vyrhost
last=${COMP_WORDS[-1]} quote=
case $last in
  [:=]) last= ;;
  \'*) quote=\' ;;
esac
for candidate in "${COMPREPLY[@]}"; do
  eval "words=(${3%"$last"}$quote$candidate$quote)"
  printf '%s\n' "${words[-1]}"
done
