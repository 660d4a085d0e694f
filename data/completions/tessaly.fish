# fish completion for tessaly and tessaly-cli: options, switches, the option
# names and placement words behind them, and files.

function __tessaly_switches
    set -l token (commandline -ct)
    switch $token
        case '/settings:*'
            printf '/settings:%s\n' ShortExtension LongExtension RemoveDoubleSpace \
                RemoveExtraSpaces Capitalize RemoveUnderscores LowerCase DontAllowSpaces \
                FixSpacing RemoveNumbers UpperCase ExampleFiles IncludePaths UnwantedFormatting
        case '/placement?:*'
            set -l head (string sub -l 12 -- $token)
            printf "$head%s\n" 'Document Name' 'document name' 'DOCUMENT NAME' \
                '1 Digit Serial Number' '2 Digit Serial Number' '3 Digit Serial Number' \
                '4 Digit Serial Number' '5 Digit Serial Number' \
                'Serial Letter (a, b, c...)' 'Serial Letter (A, B, C...)' extension EXTENSION \
                'mmddyy (date)' 'mm-dd-yyyy (date)' 'yyyy (date)' 'yyddmm (date)' 'mmdd (date)' \
                'Split(-,1)' 'Split(-,2)' '(none)'
        case '/*'
            printf '%s\n' /settings: /placement{1,2,3,4,5,6}: /step: \
                /DefineUnwantedFormatting /show /hide /exit
    end
end

# Whether the word being typed is a switch's value, which is never a file.
function __tessaly_in_value
    not __fish_seen_subcommand_from --
    and string match -qr '^/(settings|placement[1-6]):' -- (commandline -ct)
end

for command in tessaly tessaly-cli
    complete -c $command -n 'not __fish_seen_subcommand_from --' -a '(__tessaly_switches)'
    complete -c $command -n __tessaly_in_value -f
    complete -c $command -l command-line -x -d 'Hand one raw command-line text to the wizard'
    complete -c $command -s h -l help -d 'Print the usage'
    complete -c $command -l version -d 'Print the name and version'
end
complete -c tessaly-cli -s n -l dry-run -d 'Show what would happen, rename nothing'
complete -c tessaly-cli -s v -l verbose -d 'With -n, show unchanged files too'
complete -c tessaly-cli -s r -l recursive -d 'A folder brings the files of its sub-folders too'
complete -c tessaly-cli -l json -d 'Print the change log as JSON Lines'
complete -c tessaly-cli -l files-from -r -F -d 'Read the files from a file, - for standard input'
complete -c tessaly-cli -s 0 -l null -d 'Names read by --files-from are NUL-separated'
complete -c tessaly-cli -l undo -d 'Take back the last run, or the run named'
complete -c tessaly-cli -l list-runs -d 'List the kept runs and their states'
