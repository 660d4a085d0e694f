# bash completion for tessaly and tessaly-cli: options, switches, the
# option names and placement words behind them, and files.

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
      -0 --null --command-line --)

  # Bash cuts words at ":"; join "/settings" ":" "Lo" back into one word.
  local i=$COMP_CWORD cur=${COMP_WORDS[COMP_CWORD]}
  while ((i > 1)) && [[ $cur == :* || ${COMP_WORDS[i - 1]} == *: ]]; do
    cur=${COMP_WORDS[i - 1]}$cur
    ((i--))
  done
  local prev=${COMP_WORDS[i - 1]}
  compopt -o filenames 2>/dev/null
  COMPREPLY=()

  local j
  for ((j = 1; j < i; j++)); do
    if [[ ${COMP_WORDS[j]} == -- ]]; then
      mapfile -t COMPREPLY < <(compgen -f -- "$cur")
      return
    fi
  done
  case $prev in
    --files-from) mapfile -t COMPREPLY < <(compgen -f -- "$cur"); return ;;
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
  # A value or a switch head is not finished: no blank behind it.
  [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *: ]] && compopt -o nospace 2>/dev/null
  [[ $cur == /settings:* || $cur == /placement[1-6]:* ]] && return
  local files
  mapfile -t files < <(compgen -f -- "$cur")
  COMPREPLY+=("${files[@]}")
} &&
  complete -F _tessaly tessaly tessaly-cli
