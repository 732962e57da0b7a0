# complete.zsh PROGRAM COMPLETION LINE: the same for zsh, with what that would do with the result.
compset() { [[ $PREFIX != --*=* ]] || { IPREFIX=${PREFIX%%=*}=; PREFIX=${PREFIX#*=} } }
compadd() { print -rl -- "$IPREFIX"${^@[$(($@[(i)--] + 1)),-1]} }
_files() {
  local -a found=($PREFIX*(N))
  [[ $1 != -/ ]] || found=($PREFIX*(N/))
  print -rl -- $IPREFIX$^found
}
complete() { source $completion }
words=($1 ${(z)3}) completion=$2
[[ $3 != *' ' && -n $3 ]] || words+=('')
CURRENT=${#words} PREFIX=${words[-1]#\'}
complete | sed '/^$/d' || true
