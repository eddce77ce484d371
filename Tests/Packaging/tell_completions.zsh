# An interactive zsh reads this as its settings. It writes its completions of $LINE to $OFFERS.

fpath=($COMPLETIONS $fpath)
autoload -Uz compinit
compinit -D -u

# The completion system itself calls compadd to ask for matches. All other calls offer words.
compadd() {
  if [[ " ${(j: :)@[1,(i)(-|--)]} " == *' '-[OAD]' '* ]]; then
    builtin compadd "$@"
    return
  fi
  local -a offered
  builtin compadd -O offered "$@"
  (( $#offered == 0 )) || print -rl -- $offered >>$OFFERS
  builtin compadd "$@"
}

zle -C tell list-choices _main_complete
zle-line-init() {
  BUFFER=$LINE
  CURSOR=$#BUFFER
  zle tell
  exit 0
}
zle -N zle-line-init
