# Read as the settings of an interactive zsh: writes what it would offer behind $LINE to $OFFERS.

fpath=($COMPLETIONS $fpath)
autoload -Uz compinit
compinit -D -u

# Calls that ask for the matches are the completion system's own; the others offer them.
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
