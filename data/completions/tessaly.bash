# bash completion for tessaly and tessaly-cli: options, switches, the
# option names and placement words behind them, and files.

# The files that begin with $1, quoted by readline as file names.
_tessaly_files() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

_tessaly() {
  local settings=(ShortExtension LongExtension RemoveDoubleSpace RemoveExtraSpaces Capitalize
    RemoveUnderscores LowerCase DontAllowSpaces FixSpacing RemoveNumbers UpperCase
    ExampleFiles IncludePaths UnwantedFormatting)
  local placements=('Document Name' 'document name' 'DOCUMENT NAME'
    '1 Digit Serial Number' '2 Digit Serial Number' '3 Digit Serial Number'
    '4 Digit Serial Number' '5 Digit Serial Number'
    'Serial Letter (a, b, c...)' 'Serial Letter (A, B, C...)' extension EXTENSION
    'mmddyy (date)' 'mm-dd-yyyy (date)' 'yyyy (date)' 'yyddmm (date)' 'mmdd (date)'
    'Split(-,1)' 'Split(-,2)' '(none)')
  local options=(-h --help --version --command-line --)
  [[ ${COMP_WORDS[0]##*/} == tessaly-cli ]] &&
    options=(-h --help --version -n --dry-run -v --verbose -r --recursive --json --files-from
      -0 --null --command-line --undo --list-runs --)

  # Bash cuts words at ":"; join "/settings" ":" "Lo" back into one word.
  local i=$COMP_CWORD cur=${COMP_WORDS[COMP_CWORD]}
  while ((i > 1)) && [[ $cur == :* || ${COMP_WORDS[i - 1]} == *: ]]; do
    cur=${COMP_WORDS[i - 1]}$cur
    ((i--))
  done
  local prev=${COMP_WORDS[i - 1]}
  COMPREPLY=()

  local j
  for ((j = 1; j < i; j++)); do
    [[ ${COMP_WORDS[j]} == -- ]] && { _tessaly_files "$cur"; return; }
  done
  case $prev in
    --files-from) _tessaly_files "$cur"; return ;;
    --command-line) return ;;
  esac

  local candidates=() word
  case $cur in
    -*) candidates=("${options[@]}") ;;
    /settings:*) for word in "${settings[@]}"; do candidates+=("/settings:$word"); done ;;
    /placement[1-6]:*)
      for word in "${placements[@]}"; do candidates+=("${cur:0:12}$word"); done ;;
    /*) candidates=(/settings: /placement{1..6}: /step: /DefineUnwantedFormatting /show /hide /exit) ;;
  esac
  # Bash puts back only what follows the last ":" of the word.
  local head=${cur%"${cur##*:}"}
  [[ $COMP_WORDBREAKS == *:* ]] || head=
  for word in "${candidates[@]}"; do
    [[ $word == "$cur"* ]] && COMPREPLY+=("${word#"$head"}")
  done
  [[ $cur == -* ]] && return
  if [[ $cur == /settings:* || $cur == /placement[1-6]:* ]]; then
    # A value holds no ":", so readline may quote it as a file name: a
    # placement's blanks and brackets.
    compopt -o filenames 2>/dev/null
    return
  fi
  if ((${#COMPREPLY[@]} == 0)); then
    _tessaly_files "$cur"
    return
  fi
  # Beside switches, readline must not quote the replies as file names (it
  # would turn "/settings:" into "/settings\:", whose value then completes
  # no more): the files are quoted here, a folder marked by its "/".
  local file
  while IFS= read -r file; do
    [[ -d $file ]] && file+=/
    COMPREPLY+=("$(printf '%q' "$file")")
  done < <(compgen -f -- "$cur")
  # A switch head or a folder is not finished: no blank behind it.
  [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *[:/] ]] && compopt -o nospace 2>/dev/null
} &&
  complete -F _tessaly tessaly tessaly-cli
